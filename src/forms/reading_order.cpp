#include <algorithm>
#include <array>
#include <limits>
#include <span>
#include <tuple>

#include "forms/keyboard.h"

namespace kvrnstep::forms {

namespace {

using Group = std::vector<Control*>;

/// A direction in which a group is cut, by the edges that a control has there.
struct Cut {
  double Rect::*begin;
  double (Rect::*end)() const;
};
constexpr std::array kRowsThenColumns{Cut{&Rect::top, &Rect::bottom},
                                      Cut{&Rect::left, &Rect::right}};

/// The group cut wherever a straight line can be drawn that touches no control. The group itself is
/// sorted, because copies of its parts would take longer than all else here.
std::vector<std::span<Control*>> parts(std::span<Control*> group, Cut cut) {
  std::ranges::stable_sort(group, {}, [cut](const Control* c) { return c->place().*cut.begin; });
  std::vector<std::span<Control*>> result;
  double end = -std::numeric_limits<double>::infinity();
  for (Control*& control : group) {
    const Rect& place = control->place();
    if (place.*cut.begin >= end) result.emplace_back(&control, 0);
    result.back() = {result.back().data(), result.back().size() + 1};
    end = std::max(end, (place.*cut.end)());
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

bool holdsOthers(const Control& control) {
  return control.kind() == Kind::Frame || control.kind() == Kind::Panel;
}

/// Adds the controls as the eye reads: rows from top to bottom, each from left to right, and what
/// is in a container right behind it. Controls that overlap follow their upper left corners.
void read(std::span<Control*> group, Group& order) {
  if (group.size() > 1) {
    for (const Cut& cut : kRowsThenColumns) {
      const auto cutUp = parts(group, cut);
      if (cutUp.size() == 1) continue;
      for (const std::span<Control*> part : cutUp) read(part, order);
      return;
    }
  }
  std::ranges::stable_sort(group, {}, [](const Control* control) {
    return std::tuple(control->place().top, control->place().left);
  });
  for (Control* control : group) {
    order.push_back(control);
    if (!holdsOthers(*control)) continue;
    Group held = visibleIn(control->window(), control);
    read(held, order);
  }
}

/// What a label leads to; null for everything else.
Control* boxOf(const Control& label) {
  return label.kind() == Kind::Label ? label.buddy() : nullptr;
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
  Group group = visibleIn(window, nullptr);
  Group asRead;
  read(group, asRead);
  Group order = withLabelsBeforeTheirBoxes(asRead);
  std::ranges::stable_sort(order, {}, [](const Control* control) { return turn(*control); });
  return order;
}

Control* firstFocus(const Group& order) {
  const auto found = std::ranges::find_if(
      order, [](const Control* control) { return control->reachable() && takesInput(*control); });
  return found == order.end() ? nullptr : *found;
}

}  // namespace kvrnstep::forms
