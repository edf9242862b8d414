#include <algorithm>
#include <limits>
#include <tuple>

#include "forms/keyboard.h"

namespace kvrnstep::forms {

namespace {

using Group = std::vector<Control*>;

struct Span {
  double begin;
  double end;
};

enum class Cut { IntoRows, IntoColumns };

Span spanOf(const Control& control, Cut cut) {
  const Rect& place = control.place();
  if (cut == Cut::IntoRows) return {place.top, place.bottom()};
  return {place.left, place.right()};
}

/// The group cut wherever a straight line can be drawn that touches no control.
std::vector<Group> parts(Group group, Cut cut) {
  std::ranges::stable_sort(group, {}, [cut](const Control* c) { return spanOf(*c, cut).begin; });
  std::vector<Group> result;
  double end = 0;
  for (Control* control : group) {
    const Span span = spanOf(*control, cut);
    if (result.empty() || span.begin >= end) result.emplace_back();
    result.back().push_back(control);
    end = result.back().size() == 1 ? span.end : std::max(end, span.end);
  }
  return result;
}

Group visibleIn(const Window& window, const Control* container) {
  Group group;
  for (const auto& control : window.controls()) {
    if (control->container() == container && control->visible() && control->kind() != Kind::Menu) {
      group.push_back(control.get());
    }
  }
  return group;
}

void readGroup(const Group& group, Group& order);

void readOne(Control* control, Group& order) {
  order.push_back(control);
  readGroup(visibleIn(control->window(), control), order);
}

/// Controls that overlap, by their upper left corners.
void readPile(Group group, Group& order) {
  std::ranges::stable_sort(group, {}, [](const Control* control) {
    return std::tuple(control->place().top, control->place().left);
  });
  for (Control* control : group) readOne(control, order);
}

/// Adds the controls as the eye reads: rows from top to bottom, each from left to right, and what
/// is in a container right behind it.
void readGroup(const Group& group, Group& order) {
  if (group.empty()) return;
  if (group.size() == 1) return readOne(group.front(), order);
  for (const Cut cut : {Cut::IntoRows, Cut::IntoColumns}) {
    const auto cutUp = parts(group, cut);
    if (cutUp.size() == 1) continue;
    for (const Group& part : cutUp) readGroup(part, order);
    return;
  }
  readPile(group, order);
}

/// What a label leads to; null for everything else.
Control* boxOf(const Control& label) {
  if (label.kind() != Kind::Label) return nullptr;
  return label.window().find(label.row().buddy, label.row().buddyIndex);
}

Group withLabelsBeforeTheirBoxes(Group order) {
  const Group read = order;
  for (Control* label : read) {
    Control* box = boxOf(*label);
    if (box == nullptr || std::ranges::find(read, box) == read.end()) continue;
    std::erase(order, label);
    order.insert(std::ranges::find(order, box), label);
  }
  return order;
}

int turn(const Control& control) {
  const Control* box = boxOf(control);
  const int declared = std::max(control.row().tab, box == nullptr ? 0 : box->row().tab);
  return declared > 0 ? declared : std::numeric_limits<int>::max();
}

bool takesInput(const Control& control) {
  return takesFocus(control) && control.kind() != Kind::Button && !takesKeyboard(control) &&
         !control.row().readOnly;
}

}  // namespace

std::vector<Control*> tabOrder(const Window& window) {
  Group read;
  readGroup(visibleIn(window, nullptr), read);
  Group order = withLabelsBeforeTheirBoxes(read);
  std::ranges::stable_sort(order, {}, [](const Control* control) { return turn(*control); });
  return order;
}

Control* firstFocus(const Window& window) {
  const Group order = tabOrder(window);
  const auto found = std::ranges::find_if(
      order, [](const Control* control) { return control->reachable() && takesInput(*control); });
  return found == order.end() ? nullptr : *found;
}

}  // namespace kvrnstep::forms
