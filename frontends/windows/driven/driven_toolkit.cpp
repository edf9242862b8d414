#include "driven_toolkit.h"

#include "boxes.h"
#include "gestures.h"
#include "user_input.h"

namespace kvrnstep::windows {

using forms::Control;
using forms::Window;

void DrivenWindowsToolkit::windowIdle(WindowView& view) {
  // What has been drawn is on the screen before anybody looks at it.
  ::UpdateWindow(view.handle());
  pilot().act();
}

void DrivenWindowsToolkit::messageOpens() {
  tickers_.push_back(std::make_unique<Ticker>(MessageReader::act));
}

void DrivenWindowsToolkit::questionOpens() {
  const auto answerer = std::make_shared<QuestionAnswerer>([this] { return pilot().answer(); });
  tickers_.push_back(std::make_unique<Ticker>([answerer] { answerer->act(); }));
}

void DrivenWindowsToolkit::fileBoxOpens() {
  const auto namer = std::make_shared<FileNamer>([this] { return pilot().answer(); });
  tickers_.push_back(std::make_unique<Ticker>([namer] { namer->act(); }));
}

void DrivenWindowsToolkit::popUpOpens(WindowView& view, const forms::MenuEntry& menu) {
  popUp_ = PopUp{&view, &menu, false};
  tickers_.push_back(std::make_unique<Ticker>([this] { actInPopUp(); }));
}

void DrivenWindowsToolkit::boxClosed() {
  tickers_.pop_back();
  popUp_.reset();
}

void DrivenWindowsToolkit::actInPopUp() {
  if (popUp_ && !popUp_->leaving && popUpIsShown(*popUp_->view, *popUp_->menu)) pilot().act();
}

void DrivenWindowsToolkit::settle() {
  while (native().dealWithOne()) {
  }
}

bool DrivenWindowsToolkit::escape() {
  if (!popUp_ || popUp_->leaving) return false;
  popUp_->leaving = true;
  pressKey(VK_ESCAPE);
  return true;
}

bool DrivenWindowsToolkit::pick(forms::MenuEntry& entry) {
  if (popUp_) {
    popUp_->leaving = pickFromPopUp(*popUp_->view, entry);
    return popUp_->leaving;
  }
  return onViewOf(entry.window(), [&](WindowView& view, const Settle& settle) {
    return pickEntry(view, entry, settle);
  });
}

bool DrivenWindowsToolkit::click(Control& control, forms::MouseButton button,
                                 std::optional<int> entry) {
  return onViewOf(control.window(), [&](WindowView& view, const Settle& settle) {
    return clickControl(view, control, button, false, entry, settle);
  });
}

bool DrivenWindowsToolkit::doubleClick(Control& control, std::optional<int> entry) {
  return onViewOf(control.window(), [&](WindowView& view, const Settle& settle) {
    return clickControl(view, control, forms::MouseButton::Left, true, entry, settle);
  });
}

bool DrivenWindowsToolkit::type(forms::TextControl& box, std::u16string_view text) {
  return onViewOf(box.window(), [&](WindowView& view, const Settle& settle) {
    return typeText(view, box, text, settle);
  });
}

bool DrivenWindowsToolkit::clear(forms::TextControl& box) {
  return onViewOf(box.window(), [&](WindowView& view, const Settle& settle) {
    return clearText(view, box, settle);
  });
}

bool DrivenWindowsToolkit::select(forms::TextControl& box, forms::TextSelection selection) {
  return onViewOf(box.window(), [&](WindowView& view, const Settle& settle) {
    return selectText(view, box, selection, settle);
  });
}

bool DrivenWindowsToolkit::press(Window& window, std::string_view keys) {
  return onViewOf(window, [&](WindowView& view, const Settle& settle) {
    return pressShortcut(view, keys, settle);
  });
}

bool DrivenWindowsToolkit::choose(forms::ComboBox& combo, int entry) {
  return onViewOf(combo.window(), [&](WindowView& view, const Settle& settle) {
    return chooseEntry(view, combo, entry, settle);
  });
}

bool DrivenWindowsToolkit::spin(forms::Spinner& spinner, bool up) {
  return onViewOf(spinner.window(), [&](WindowView& view, const Settle& settle) {
    return clickArrow(view, spinner, up, settle);
  });
}

bool DrivenWindowsToolkit::drag(Control& from, Control& to) {
  return onViewOf(from.window(), [&](WindowView& view, const Settle& settle) {
    return dragOnto(view, from, to, settle);
  });
}

bool DrivenWindowsToolkit::move(Window& window, double left, double top) {
  return onViewOf(window, [&](WindowView& view, const Settle& settle) {
    return moveWindow(view, left, top, settle);
  });
}

bool DrivenWindowsToolkit::resize(Window& window, double width, double height) {
  return onViewOf(window, [&](WindowView& view, const Settle& settle) {
    return resizeWindow(view, width, height, settle);
  });
}

bool DrivenWindowsToolkit::minimize(Window& window, bool minimized) {
  return onViewOf(window, [&](WindowView& view, const Settle& settle) {
    return minimizeWindow(view, minimized, settle);
  });
}

bool DrivenWindowsToolkit::close(Window& window) {
  return onViewOf(
      window, [&](WindowView& view, const Settle& settle) { return closeWindow(view, settle); });
}

std::optional<forms::PropertyValue> DrivenWindowsToolkit::shown(const Control& control,
                                                                forms::Property property) {
  const WindowView* view = viewOf(control);
  return view == nullptr ? std::nullopt : view->shown(control, property);
}

}  // namespace kvrnstep::windows
