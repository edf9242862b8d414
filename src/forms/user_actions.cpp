#include "forms/user_actions.h"

#include <utility>

#include "forms/guard.h"
#include "forms/keyboard.h"

namespace kvrnstep::forms {

/// One action of the user. All that has changed is shown when the outermost one ends.
class UserAction {
 public:
  explicit UserAction(Window& window) : window_(window) { ++window_.actionDepth_; }
  ~UserAction() {
    if (--window_.actionDepth_ == 0) guarded([this] { window_.update(); });
  }
  UserAction(const UserAction&) = delete;
  UserAction& operator=(const UserAction&) = delete;

  // Parts of a window that only its user changes.
  static auto& heldKeys(Window& window) { return window.heldKeys_; }
  static bool& minimized(Window& window) { return window.minimized_; }
  static void setPlace(Window& window, const Rect& place) { window.place_ = place; }
  static void resized(Window& window) { window.resized(); }

 private:
  Window& window_;
};

namespace {

/// Carries out what the user does. What throws on the way is skipped.
template <class Action>
auto act(Window& window, Action action) {
  const UserAction outermost(window);
  return guarded(action);
}

}  // namespace

void userClicked(Control& control) {
  act(control.window(), [&] {
    if (!control.reachable()) return;
    if (control.kind() == Kind::CheckBox) {
      auto& box = static_cast<CheckBox&>(control);
      box.setValue(box.checked() ? 0 : 1);
    } else if (control.kind() == Kind::OptionButton) {
      auto& button = static_cast<OptionButton&>(control);
      if (!button.value()) button.setValue(true);
    } else if (control.onClick) {
      control.onClick(control.index());
    }
  });
}

void userReleasedMouse(Control& control, MouseButton button) {
  act(control.window(), [&] {
    if (control.reachable() && control.onMouseUp) control.onMouseUp(control.index(), button);
  });
  if (button == MouseButton::Left && takesKeyboard(control)) userClicked(control);
}

void userClickedEntry(ListBox& list, int index) {
  act(list.window(), [&] {
    if (list.reachable() && index >= 0) list.setIndex(index);
  });
}

void userDoubleClickedEntry(ListBox& list, int index) {
  act(list.window(), [&] {
    if (!list.reachable()) return;
    if (index >= 0) list.setIndex(index);
    if (list.onDblClick) list.onDblClick(list.index());
  });
}

void userScrolled(ListBox& list, int topIndex) {
  act(list.window(), [&] { list.setTopIndex(topIndex); });
}

void userDropped(const Control& source, Control& target) {
  act(target.window(), [&] {
    if (!source.row().draggable || !source.reachable() || !target.reachable()) return;
    if (target.onDragDrop) target.onDragDrop(target.index(), source);
  });
}

void userChose(ComboBox& combo, int index) {
  act(combo.window(), [&] {
    if (combo.reachable()) combo.choose(index);
  });
}

void userSpun(Spinner& spinner, bool up) {
  act(spinner.window(), [&] {
    if (!spinner.reachable()) return;
    spinner.setValue(spinner.value() + (up ? 1 : -1));
    const auto& handler = up ? spinner.onUpClick : spinner.onDownClick;
    if (handler) handler(spinner.index());
  });
}

bool userEntered(TextControl& box, Way way) {
  return act(box.window(), [&] {
    if (way == Way::Click && !box.row().markedByClick) return false;
    box.setSelection({0, box.row().multiLine ? 0 : box.text().size()});
    return true;
  });
}

void userPressedKey(Control& focus, KeyCode key) {
  auto& held = UserAction::heldKeys(focus.window());
  held.erase(key);
  if (!holdsText(focus)) return;
  guarded([&] { held.emplace(key, static_cast<TextControl*>(&focus)); });
}

bool userReleasedKey(Window& window, KeyCode key) {
  return act(window, [&] {
    const auto held = UserAction::heldKeys(window).extract(key);
    if (held.empty()) return false;
    const TextControl& box = *held.mapped();
    if (box.reachable() && box.onKeyUp) box.onKeyUp(box.index());
    return true;
  });
}

void userLeft(Window& window) {
  UserAction::heldKeys(window).clear();
}

bool userTypes(TextControl& box, char16_t character) {
  return act(box.window(), [&] {
    return box.reachable() && (!box.onKeyPress || box.onKeyPress(box.index(), character));
  });
}

void userEdited(TextControl& box, std::u16string text, TextSelection selection) {
  act(box.window(), [&] {
    if (box.reachable()) box.textByUser(std::move(text), selection);
  });
}

void userSelected(TextControl& box, TextSelection selection) {
  act(box.window(), [&] { box.setSelection(selection); });
}

void userMoved(Window& window, double left, double top) {
  UserAction::setPlace(window, {left, top, window.place().width, window.place().height});
}

void userResized(Window& window, double width, double height) {
  act(window, [&] {
    UserAction::setPlace(window, {window.place().left, window.place().top, width, height});
    UserAction::resized(window);
  });
}

void userMinimized(Window& window, bool minimized) {
  act(window, [&] { UserAction::minimized(window) = minimized; });
}

void userClosed(Window& window) {
  act(window, [&] { window.unload(); });
}

}  // namespace kvrnstep::forms
