#include "driven_toolkit.h"

#include "boxes.h"
#include "gestures.h"
#include "shown.h"
#include "user_input.h"

namespace kvrnstep::windows {

void DrivenWindowsToolkit::windowIdle(WindowView& view) {
  // What has been drawn is on the screen before anybody looks at it.
  ::UpdateWindow(view.handle());
  player().act();
}

void DrivenWindowsToolkit::messageOpens() {
  tickers_.push_back(std::make_unique<Ticker>(MessageReader::act));
}

void DrivenWindowsToolkit::questionOpens() {
  const auto answerer = std::make_shared<QuestionAnswerer>([this] { return player().answer(); });
  tickers_.push_back(std::make_unique<Ticker>([answerer] { answerer->act(); }));
}

void DrivenWindowsToolkit::fileBoxOpens() {
  const auto namer = std::make_shared<FileNamer>([this] { return player().answer(); });
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
  if (popUp_ && !popUp_->leaving && popUpIsShown(*popUp_->view, *popUp_->menu)) player().act();
}

bool DrivenWindowsToolkit::leavePopUp(const driving::Gesture& gesture) {
  if (popUp_->leaving) return false;
  if (gesture.what == driving::Gesture::What::Escape) {
    pressKey(VK_ESCAPE);
    popUp_->leaving = true;
  } else {
    popUp_->leaving = pickFromPopUp(*popUp_->view, *gesture.control);
  }
  return popUp_->leaving;
}

bool DrivenWindowsToolkit::carryOut(const driving::Gesture& gesture) {
  if (popUp_) return leavePopUp(gesture);
  WindowView* view = native().viewOf(gesture.window);
  const auto settle = [this] {
    while (native().dealWithOne()) {
    }
  };
  return view != nullptr && windows::carryOut(*view, gesture, settle);
}

std::optional<driving::Value> DrivenWindowsToolkit::shown(const forms::Control& control,
                                                          std::string_view property) {
  const WindowView* view = native().viewOf(control.window());
  return view == nullptr ? std::nullopt : windows::shown(*view, control, property);
}

}  // namespace kvrnstep::windows
