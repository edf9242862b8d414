#pragma once

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <vector>

#include "forms/window.h"
#include "windows_toolkit.h"

// A window with a control of each kind, and somebody who uses it.
namespace kvrnstep::windows {

using forms::ControlRow;
using forms::Kind;

constexpr auto kControls = std::to_array<ControlRow>({
    {.kind = Kind::TextBox, .name = "text", .place = {10, 10, 150, 60}, .multiLine = true},
    {.kind = Kind::Button,
     .name = "first",
     .place = {10, 80, 80, 23},
     .caption = u"&First",
     .clickedByEscape = true},
    {.kind = Kind::Button,
     .name = "second",
     .place = {100, 80, 80, 23},
     .caption = u"&Second",
     .prominent = true},
    {.kind = Kind::Panel, .name = "group", .place = {10, 110, 150, 60}},
    {.kind = Kind::OptionButton,
     .name = "option",
     .index = 0,
     .in = "group",
     .place = {0, 0, 150, 20},
     .caption = u"One",
     .checked = true},
    {.kind = Kind::OptionButton,
     .name = "option",
     .index = 1,
     .in = "group",
     .place = {0, 20, 150, 20},
     .caption = u"Two"},
    {.kind = Kind::ComboBox, .name = "combo", .place = {10, 180, 150, 21}},
    {.kind = Kind::Label,
     .name = "link",
     .place = {10, 210, 150, 17},
     .caption = u"Link",
     .clickable = true,
     .accessKey = u'L'},
    {.kind = Kind::TextBox, .name = "line", .place = {10, 235, 150, 40}, .enabled = false},
    {.kind = Kind::ListBox, .name = "list", .place = {200, 10, 80, 60}, .enabled = false},
    {.kind = Kind::Menu, .name = "menu", .caption = u"&Menu"},
    {.kind = Kind::Menu, .name = "entry", .in = "menu", .caption = u"&Entry", .shortcut = "Ctrl+E"},
});

constexpr forms::WindowDesign kDesign{
    .name = "window",
    .caption = u"Window",
    .place = {1500, 1500, 4500, 4500},
    .twipsPerUnit = forms::kTwipsPerPixel,
    .controls = kControls,
};

class TestWindow : public forms::Window {
 public:
  TestWindow() : Window(kDesign) {}

  forms::Control& at(std::string_view name, int index = -1) { return *find(name, index); }
  template <class T>
  T& as(std::string_view name, int index = -1) {
    return static_cast<T&>(at(name, index));
  }
};

/// Carries out one step each time the window has come to rest, and closes it after the last one.
class Steps : public Attendant {
 public:
  using Step = std::function<void(WindowView&)>;
  explicit Steps(std::vector<Step> steps) : steps_(std::move(steps)) {}

  void windowIdle(WindowView& view) override {
    if (next_ < steps_.size()) {
      steps_[next_++](view);
    } else {
      ::PostMessageW(view.handle(), WM_CLOSE, 0, 0);
    }
  }

  [[nodiscard]] bool allTaken() const { return next_ == steps_.size(); }

 private:
  std::vector<Step> steps_;
  std::size_t next_ = 0;
};

inline void show(TestWindow& window, std::vector<Steps::Step> steps) {
  Steps attendant(std::move(steps));
  WindowsToolkit toolkit(&attendant);
  window.showModal(toolkit);
  EXPECT_TRUE(attendant.allTaken());
}

}  // namespace kvrnstep::windows
