#include "forms/keyboard.h"

#include <algorithm>
#include <array>

#include "forms/user_actions.h"
#include "text/letter_case.h"
#include "text/numbers.h"
#include "text/text.h"

namespace kvrnstep::forms {

namespace {

/// The spinner or the label of a box, or null.
Control* leadingTo(const Control& box, Kind kind) {
  return box.window().findIf(
      [&](const Control& control) { return control.kind() == kind && control.buddy() == &box; });
}

/// Clicks the button whose row has that mark.
bool clickMarked(const Window& window, bool ControlRow::*mark) {
  Control* button = window.findIf([&](const Control& c) { return c.row().*mark; });
  if (button == nullptr || !button->reachable()) return false;
  userClicked(*button);
  return true;
}

bool arrow(Control& focus, bool up) {
  if (focus.kind() == Kind::ListBox) {
    auto& list = static_cast<ListBox&>(focus);
    if (list.entries().selected >= 0 || list.ListCount() == 0) return false;
    userClickedEntry(list, list.firstInView());
    return true;
  }
  Control* spinner = leadingTo(focus, Kind::Spinner);
  if (spinner == nullptr) return false;
  userSpun(static_cast<Spinner&>(*spinner), up);
  return true;
}

bool rightClick(Control* control) {
  if (control == nullptr || !control->onMouseUp) return false;
  userReleasedMouse(*control, MouseButton::Right);
  return true;
}

bool activate(Control& control) {
  if (!takesKeyboard(control)) return false;
  userActivated(control);
  return true;
}

bool enter(Control& focus) {
  if (focus.kind() == Kind::ListBox) {
    auto& list = static_cast<ListBox&>(focus);
    if (!list.onDblClick || list.entries().selected < 0) return false;
    userDoubleClickedEntry(list, list.entries().selected);
    return true;
  }
  if (focus.kind() == Kind::TextBox && !focus.row().multiLine) {
    return clickMarked(focus.window(), &ControlRow::clickedByEnter);
  }
  return activate(focus);
}

/// Where in the caption the letter of the mnemonic is; npos where there is none.
std::size_t markedLetter(std::u16string_view caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != u'&') continue;
    if (caption[i + 1] != u'&') return i + 1;
    ++i;
  }
  return std::u16string_view::npos;
}

/// The letter that the control's declaration asks for; 0 for none.
char16_t wantedLetter(const Control& control) {
  if (control.row().accessKey != 0) return control.row().accessKey;
  const std::size_t place = markedLetter(control.caption());
  return place == std::u16string_view::npos ? u'\0' : text::capitalLetter(control.caption()[place]);
}

bool inMenu(const Control& control) {
  return control.kind() == Kind::Menu && control.container() != nullptr;
}

bool inMenuBar(const Control& control) {
  return control.kind() == Kind::Menu && control.container() == nullptr && control.visible();
}

}  // namespace

bool userPressedCommandKey(Control& focus, CommandKey key) {
  switch (key) {
    case CommandKey::Enter:
      return enter(focus);
    case CommandKey::Escape:
      return clickMarked(focus.window(), &ControlRow::clickedByEscape);
    case CommandKey::Space:
      return activate(focus);
    case CommandKey::Up:
    case CommandKey::Down:
      return arrow(focus, key == CommandKey::Up);
    case CommandKey::Ask:
      return rightClick(leadingTo(focus, Kind::Spinner));
    case CommandKey::Menu:
      return focus.kind() == Kind::ListBox && rightClick(&focus);
  }
  return false;
}

void userActivated(Control& control) {
  if (!control.row().draggable) return userReleasedMouse(control, MouseButton::Left);
  Control* target = control.window().findIf([](const Control& c) { return bool(c.onDragDrop); });
  if (target == nullptr) return;
  userDropped(control, *target);
  control.window().setFocus(*target);
  control.window().update();
}

bool userPressedLetter(const Window& window, char16_t letter) {
  Control* control = window.findIf([&](const Control& c) {
    return takesKeyboard(c) && c.reachable() && mnemonicOf(c) == letter;
  });
  if (control != nullptr) userActivated(*control);
  return control != nullptr;
}

void userDoubleClicked(Control& label) {
  if (label.row().draggable) userActivated(label);
}

bool takesKeyboard(const Control& control) {
  return control.row().clickable || control.row().draggable;
}

bool takesFocus(const Control& control) {
  constexpr std::array kAlways{Kind::Button, Kind::CheckBox, Kind::ComboBox, Kind::TextBox,
                               Kind::ListBox};
  if (control.kind() == Kind::OptionButton) {
    return static_cast<const OptionButton&>(control).value();
  }
  return std::ranges::count(kAlways, control.kind()) > 0 || takesKeyboard(control);
}

bool isLink(const Control& control) {
  return control.kind() == Kind::Label && control.row().clickable;
}

char16_t mnemonicOf(const Control& control) {
  const char16_t letter = wantedLetter(control);
  if (letter == 0 || inMenu(control)) return letter;
  const auto firstThatWantsIt = [&](bool menuBar) {
    return control.window().findIf([&](const Control& other) {
      return !inMenu(other) && inMenuBar(other) == menuBar && wantedLetter(other) == letter;
    });
  };
  const Control* menu = firstThatWantsIt(true);
  const Control* owner = menu == nullptr ? firstThatWantsIt(false) : menu;
  return owner == &control ? letter : u'\0';
}

std::u16string drawnCaption(const Control& control) {
  std::u16string drawn = control.caption();
  const char16_t letter = mnemonicOf(control);
  if (letter == 0) {
    const std::size_t marked = markedLetter(drawn);
    if (marked != std::u16string::npos) drawn.erase(marked - 1, 1);
  } else if (control.row().accessKey != 0) {
    const std::size_t place = drawn.find(letter);
    if (place != std::u16string::npos) drawn.insert(place, 1, u'&');
  }
  return drawn;
}

std::u16string accessibleName(const Control& control) {
  if (!control.row().accessibleName.empty()) {
    return text::ReplaceText(control.row().accessibleName, u"#",
                             text::decimal(control.index() + 1));
  }
  if (control.kind() == Kind::Spinner) {
    return control.buddy() == nullptr ? std::u16string() : accessibleName(*control.buddy());
  }
  const Control* label = leadingTo(control, Kind::Label);
  std::u16string name =
      text::withoutMnemonic(label == nullptr ? control.caption() : label->caption());
  if (name.ends_with(u':')) name.pop_back();
  return name;
}

std::u16string accessibleArrowName(const Spinner& spinner, bool up) {
  return (up ? u"Increase " : u"Decrease ") + accessibleName(spinner);
}

}  // namespace kvrnstep::forms
