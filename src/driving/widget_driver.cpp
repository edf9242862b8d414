#include "driving/widget_driver.h"

#include <algorithm>

#include "forms/user_actions.h"
#include "text/characters.h"

namespace kvrnstep::driving {

using forms::Control;
using forms::MouseButton;
using forms::TextControl;
using forms::TextSelection;
using forms::Window;
using What = Gesture::What;

namespace {

constexpr std::u16string_view kEnter = u"\r";
constexpr std::u16string_view kEscape = u"\x1B";
constexpr std::u16string_view kDelete = u"\x7F";
/// How often the user tries a menu or a box before giving it up.
constexpr int kPatience = 300;

}  // namespace

void WidgetDriver::opens(Opened what, const Window* window, const forms::MenuEntry* menu) {
  if (turns_.empty()) callAct(true);
  turns_.push_back({what, window, menu});
}

void WidgetDriver::closed() {
  turns_.pop_back();
  if (turns_.empty()) callAct(false);
}

void WidgetDriver::act() {
  if (pick_ != nullptr) return pickWanted();
  if (turns_.empty() || turns_.back().busy) return;
  Turn& turn = turns_.back();
  bool closing = false;
  turn.busy = true;
  if (turn.what == Opened::Window) {
    if (waits(*turn.window)) player().act();
  } else if (turn.what == Opened::PopUp) {
    if (!turn.leaves && isShown(*turn.menu)) player().act();
  } else if (void* box = openBox()) {
    closing = useBox(turn, box);
  }
  turn.busy = false;
  // A box that is still opening may miss its key; the next call presses it again. The key may also
  // open a message of the box. The player then acts there before strike() returns.
  if (closing) strike(turn.leaves || ++turn.keys > kPatience ? kEscape : kEnter);
}

bool WidgetDriver::isShown(const forms::MenuEntry& menu) {
  return std::ranges::any_of(menu.window().controls(), [&](const auto& control) {
    return control->container() == &menu && spotOf(*control, Part::Whole, 0);
  });
}

/// Answers a box, and the questions and messages that come before it closes. True: a key closes it
/// now.
bool WidgetDriver::useBox(Turn& turn, void* box) {
  if (turn.box == nullptr) {
    turn.box = box;
    if (turn.what != Opened::Message) answer(turn, box);
  }
  if (box == turn.box) return true;
  agree(box);
  turn.leaves = true;
  return false;
}

void WidgetDriver::answer(Turn& turn, void* box) {
  const auto answer = player().answer();
  // A file box ignores an empty name without a message.
  turn.leaves = !answer || (answer->empty() && turn.what == Opened::FileBox);
  if (turn.leaves) return;
  enterLine(box);
  if (answer->empty()) strike(kDelete);
  for (std::u16string_view rest = *answer; !rest.empty();) strike(text::takeCharacter(rest));
}

bool WidgetDriver::carryOut(const Gesture& gesture) {
  if (!turns_.empty() && turns_.back().what == Opened::PopUp) {
    return leavePopUp(turns_.back(), gesture);
  }
  const forms::ViewSync* view = gesture.window.view();
  if (view == nullptr || !view->open()) return false;
  if (gesture.control != nullptr && shown(*gesture.control, "enabled") == Value(false)) {
    return false;
  }
  if (!gesture.window.minimized()) bringToFront(gesture.window);
  const bool done = begin(gesture, *view);
  settle();
  return done;
}

bool WidgetDriver::leavePopUp(Turn& turn, const Gesture& gesture) {
  if (turn.leaves) return false;
  turn.leaves = gesture.what == What::Escape || click(*gesture.control);
  if (gesture.what == What::Escape) strike(kEscape);
  return turn.leaves;
}

bool WidgetDriver::begin(const Gesture& gesture, const forms::ViewSync& view) {
  if (gesture.control == nullptr) return beginWithWindow(gesture, view);
  const Control& control = *gesture.control;
  switch (gesture.what) {
    case What::Click:
    case What::DoubleClick:
    case What::RightClick:
      if (control.kind() == forms::Kind::Menu) return pickFromBar(control);
      return click(control, gesture.entry ? Part::Entry : Part::Whole, gesture.entry.value_or(0),
                   gesture.what == What::RightClick ? MouseButton::Right : MouseButton::Left,
                   gesture.what == What::DoubleClick);
    case What::Type: {
      auto& box = gesture.on<TextControl>();
      return enter(box, {box.text().size(), 0}) && type(gesture.text, view);
    }
    case What::Clear:
      return enter(control, {0, gesture.on<TextControl>().text().size()}) && type(kDelete, view);
    case What::Select:
      return enter(control, gesture.selection());
    case What::Press:
      // "Ctrl+S" types a control character.
      strike(std::u16string(1, static_cast<char16_t>(control.row().shortcut.back() - '@')));
      return true;
    case What::Choose:
      return click(control, Part::DropDown) && click(control, Part::Entry, *gesture.entry);
    case What::SpinUp:
      return click(control, Part::UpArrow);
    case What::SpinDown:
      return click(control, Part::DownArrow);
    case What::Drag: {
      const auto from = spotOf(control, Part::Whole, 0);
      const auto to = spotOf(*gesture.target, Part::Whole, 0);
      return from && to && drag(*from, *to);
    }
    case What::Pick:
      return pickFromBar(control);
    default:
      return false;
  }
}

bool WidgetDriver::beginWithWindow(const Gesture& gesture, const forms::ViewSync& view) {
  if (gesture.what == What::Move || gesture.what == What::Resize) {
    place(gesture, view);
    return true;
  }
  useFrame(gesture.window, gesture.what);
  return gesture.what == What::Close ||
         gesture.window.minimized() == (gesture.what == What::Minimize);
}

bool WidgetDriver::click(const Control& control, Part part, int entry, MouseButton button,
                         bool twice) {
  const auto spot = spotOf(control, part, entry);
  const bool clicked = spot && clickAt(*spot, button, twice);
  // In an open menu the loop of the menu deals with the click.
  if (clicked && control.kind() != forms::Kind::Menu) settle();
  return clicked;
}

/// Puts the keyboard into the box with a click, and the caret or the mark where it is wanted.
bool WidgetDriver::enter(const Control& box, TextSelection selection) {
  if (!click(box)) return false;
  box.window().view()->syncOf(box).text()->setSelection(selection);
  settle();
  return true;
}

bool WidgetDriver::type(std::u16string_view text, const forms::ViewSync& view) {
  while (!text.empty() && view.open()) {
    strike(text::takeCharacter(text));
    settle();
  }
  return true;
}

bool WidgetDriver::pickFromBar(const Control& entry) {
  Pick pick{&entry};
  pick_ = &pick;
  if (entry.container() != nullptr && click(*entry.container())) settle();
  // Where an open menu has a loop of its own, act() has done this meanwhile.
  if (pick_ != nullptr) pickWanted();
  pick_ = nullptr;
  return pick.done;
}

void WidgetDriver::pickWanted() {
  Pick& pick = *pick_;
  if (const auto spot = spotOf(*pick.entry, Part::Whole, 0)) {
    pick_ = nullptr;
    pick.done = clickAt(*spot, MouseButton::Left, false);
  } else if (++pick.looks > kPatience) {
    strike(kEscape);
  }
}

/// The screen knows whole pixels only. So the exact place is told as a front end tells it, unless
/// the window has taken another one.
void WidgetDriver::place(const Gesture& gesture, const forms::ViewSync& view) {
  Window& window = gesture.window;
  const double first = gesture.numbers[0];
  const double second = gesture.numbers[1];
  const forms::Rect& now = window.place();
  if (gesture.what == What::Move) {
    const forms::PixelPoint wanted = view.onDesktop(first, second);
    move(window, wanted);
    settle();
    const bool moved = view.open() && view.onDesktop(now.left, now.top) == wanted;
    if (moved) forms::userMoved(window, first, second);
  } else {
    const forms::PixelSize wanted = view.innerSize(first, second);
    resize(window, wanted);
    settle();
    const bool resized = view.open() && view.innerSize(now.width, now.height) == wanted;
    if (resized) forms::userResized(window, first, second);
  }
}

std::optional<Value> WidgetDriver::shown(const Control& control, std::string_view property) {
  const forms::ViewSync* view = control.window().view();
  if (view == nullptr || !view->open()) return std::nullopt;
  forms::ControlSync& sync = view->syncOf(control);
  if (const forms::TextSync* box = sync.text()) {
    if (property == "text") return box->shownText();
    if (property == "selstart") return static_cast<double>(box->shownSelection().start);
    if (property == "sellength") return static_cast<double>(box->shownSelection().length);
  }
  if (property == "topindex") {
    const int asked = static_cast<const forms::ListBox&>(control).topIndex();
    return static_cast<double>(sync.scrolledAsAsked() ? asked : sync.scroll().first);
  }
  return seen(control, property);
}

}  // namespace kvrnstep::driving
