#include "forms/keyboard.h"

#include <algorithm>

#include "forms/user_actions.h"
#include "text/letter_case.h"
#include "text/numbers.h"
#include "text/text.h"

namespace kvrnstep::forms {

namespace {

/// The first control of which the condition holds, or null.
template <class Condition>
Control* findIf(const Window& window, Condition condition) {
  const auto& all = window.controls();
  const auto found =
      std::ranges::find_if(all, [&](const auto& control) { return condition(*control); });
  return found == all.end() ? nullptr : found->get();
}

bool isBuddyOf(const Control& buddy, const Control& control) {
  return control.row().buddy == buddy.row().name && control.row().buddyIndex == buddy.index();
}

Spinner* spinnerOf(const Control& box) {
  return static_cast<Spinner*>(findIf(box.window(), [&](const Control& control) {
    return control.kind() == Kind::Spinner && isBuddyOf(box, control);
  }));
}

const Control* labelOf(const Control& box) {
  return findIf(box.window(), [&](const Control& control) {
    return control.kind() == Kind::Label && isBuddyOf(box, control);
  });
}

bool click(Control* button) {
  if (button == nullptr || !button->reachable()) return false;
  userClicked(*button);
  return true;
}

/// Where nothing is selected yet the arrows begin with what is in view.
bool selectFirst(ListBox& list) {
  if (list.entries().selected >= 0 || list.ListCount() == 0) return false;
  userClickedEntry(list, list.firstInView());
  return true;
}

bool arrow(Control& focus, bool up) {
  if (focus.kind() == Kind::ListBox) return selectFirst(static_cast<ListBox&>(focus));
  Spinner* spinner = spinnerOf(focus);
  if (spinner == nullptr) return false;
  userSpun(*spinner, up);
  return true;
}

bool ask(const Control& box) {
  Spinner* spinner = spinnerOf(box);
  if (spinner == nullptr) return false;
  userReleasedMouse(*spinner, MouseButton::Right);
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
    return click(findIf(focus.window(), [](const Control& c) { return c.row().clickedByEnter; }));
  }
  return activate(focus);
}

bool escape(const Control& focus) {
  return click(findIf(focus.window(), [](const Control& c) { return c.row().clickedByEscape; }));
}

bool openMenu(Control& focus) {
  if (focus.kind() != Kind::ListBox || !focus.onMouseUp) return false;
  userReleasedMouse(focus, MouseButton::Right);
  return true;
}

/// Where in the caption the letter of the mnemonic stands; npos where there is none.
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

/// Whether the other one, which wants the same letter, has it.
bool comesBefore(const Control& other, const Control& control) {
  if (inMenuBar(other) != inMenuBar(control)) return inMenuBar(other);
  return std::ranges::find_if(control.window().controls(), [&](const auto& each) {
           return each.get() == &other || each.get() == &control;
         })->get() == &other;
}

/// "Text #" is "Text 3" for the third element of an array.
std::u16string numbered(std::u16string_view name, int index) {
  std::u16string result(name);
  if (const std::size_t place = result.find(u'#'); place != std::u16string::npos) {
    result.replace(place, 1, text::decimal(index + 1));
  }
  return result;
}

}  // namespace

bool userPressedCommandKey(Control& focus, CommandKey key) {
  switch (key) {
    case CommandKey::Enter:
      return enter(focus);
    case CommandKey::Escape:
      return escape(focus);
    case CommandKey::Space:
      return activate(focus);
    case CommandKey::Up:
    case CommandKey::Down:
      return arrow(focus, key == CommandKey::Up);
    case CommandKey::Ask:
      return ask(focus);
    case CommandKey::Menu:
      return openMenu(focus);
  }
  return false;
}

void userActivated(Control& control) {
  if (!control.row().draggable) {
    userReleasedMouse(control, MouseButton::Left);
    userClicked(control);
    return;
  }
  Control* target = findIf(control.window(), [](const Control& c) { return bool(c.onDragDrop); });
  if (target == nullptr) return;
  userDropped(control, *target);
  control.window().setFocus(*target);
  control.window().update();
}

bool takesKeyboard(const Control& control) {
  return control.row().clickable || control.row().draggable;
}

bool takesFocus(const Control& control) {
  switch (control.kind()) {
    case Kind::Button:
    case Kind::CheckBox:
    case Kind::ComboBox:
    case Kind::TextBox:
    case Kind::ListBox:
      return true;
    case Kind::OptionButton:
      return static_cast<const OptionButton&>(control).value();
    default:
      return takesKeyboard(control);
  }
}

bool isLink(const Control& control) {
  return control.kind() == Kind::Label && control.row().clickable;
}

char16_t mnemonicOf(const Control& control) {
  const char16_t letter = wantedLetter(control);
  if (letter == 0 || inMenu(control)) return letter;
  const Control* rival = findIf(control.window(), [&](const Control& other) {
    return &other != &control && !inMenu(other) && wantedLetter(other) == letter &&
           comesBefore(other, control);
  });
  return rival == nullptr ? letter : u'\0';
}

std::u16string drawnCaption(const Control& control) {
  const std::u16string& caption = control.caption();
  const char16_t letter = mnemonicOf(control);
  if (letter == 0 && markedLetter(caption) != std::u16string::npos) {
    std::u16string unmarked = caption;
    unmarked.erase(markedLetter(caption) - 1, 1);
    return unmarked;
  }
  std::u16string drawn = caption;
  if (control.row().accessKey != 0 && letter != 0) {
    if (const std::size_t place = drawn.find(letter); place != std::u16string::npos) {
      drawn.insert(place, 1, u'&');
    }
  }
  return drawn;
}

std::u16string accessibleName(const Control& control) {
  if (!control.row().accessibleName.empty()) {
    return numbered(control.row().accessibleName, control.index());
  }
  if (control.kind() == Kind::Spinner) {
    const Control* box = control.window().find(control.row().buddy, control.row().buddyIndex);
    return box == nullptr ? std::u16string() : accessibleName(*box);
  }
  const Control* label = labelOf(control);
  std::u16string name =
      text::withoutMnemonic(label == nullptr ? control.caption() : label->caption());
  if (name.ends_with(u':')) name.pop_back();
  return name;
}

std::u16string accessibleArrowName(const Spinner& spinner, bool up) {
  return (up ? u"Increase " : u"Decrease ") + accessibleName(spinner);
}

}  // namespace kvrnstep::forms
