#include "forms/window.h"

#include <algorithm>
#include <utility>

#include "forms/guard.h"
#include "forms/toolkit.h"
#include "forms/view_sync.h"

namespace kvrnstep::forms {

namespace {

template <class T>
std::unique_ptr<Control> make(Window& window, const ControlRow& row, Control* container) {
  return std::make_unique<T>(window, row, container);
}

/// The kinds that have a class of their own.
using Maker = std::pair<Kind, decltype(&make<Control>)>;
constexpr auto kMakers = std::to_array<Maker>({
    {Kind::CheckBox, make<CheckBox>},
    {Kind::OptionButton, make<OptionButton>},
    {Kind::ComboBox, make<ComboBox>},
    {Kind::TextBox, make<TextBox>},
    {Kind::Spinner, make<Spinner>},
    {Kind::ListBox, make<ListBox>},
    {Kind::Menu, make<MenuEntry>},
});

}  // namespace

Window::Window(const WindowDesign& design)
    : design_(design), caption_(design.caption), place_(design.place) {
  controls_.reserve(design.controls.size());
  for (const ControlRow& row : design.controls) {
    Control* container = row.in.empty() ? nullptr : find(row.in, -1);
    const auto* maker = std::ranges::find(kMakers, row.kind, &Maker::first);
    controls_.push_back(
        (maker == kMakers.end() ? make<Control> : maker->second)(*this, row, container));
  }
  for (const auto& control : controls_) {
    const ControlRow& row = control->row();
    if (!row.buddy.empty()) control->buddy_ = find(row.buddy, row.buddyIndex);
  }
}

Control* Window::find(std::string_view name, int index) const {
  return findIf([&](const Control& control) {
    return control.index() == index && control.row().name == name;
  });
}

void Window::onClick(std::string_view name, const std::function<void(int index)>& handler) {
  for (const auto& control : controls_) {
    if (control->row().name == name) control->onClick = handler;
  }
}

void Window::changed(Property property) {
  if (view_ != nullptr) view_->changed(property);
}

void Window::setWidth(double twips) {
  assign(place_.width, twips, Property::Size);
  resized();
}

void Window::setHeight(double twips) {
  assign(place_.height, twips, Property::Size);
  resized();
}

void Window::resized() {
  for (const auto& control : controls_) {
    // How much of a list is shown depends on the height of the window.
    if (control->kind() == Kind::ListBox) control->changed(Property::Place);
    if (control->kind() != Kind::StatusBar) continue;
    const double height = control->place().height;
    control->setPlace({0, innerHeight() - height, innerWidth(), height});
  }
  if (onResize) onResize();
}

bool Window::hasMenuBar() const {
  return findIf([](const Control& control) {
           return control.kind() == Kind::Menu && control.visible();
         }) != nullptr;
}

Size Window::chrome() const {
  return {Chrome::kSides, Chrome::kTitleAndBorders + (hasMenuBar() ? Chrome::kMenuBar : 0)};
}

double Window::innerWidth() const {
  return (place_.width - chrome().width) / design_.twipsPerUnit;
}

double Window::innerHeight() const {
  return (place_.height - chrome().height) / design_.twipsPerUnit;
}

void Window::showModal(Toolkit& toolkit) {
  if (onLoad) onLoad();
  if (!unloaded_) toolkit.runModal(*this);
}

void Window::unload() {
  if (std::exchange(unloading_, true)) return;
  // Whatever fails, the window closes.
  if (onQueryUnload) guarded(onQueryUnload);
  unloaded_ = true;
  if (view_ != nullptr) view_->unloaded();
}

void Window::update() {
  if (view_ != nullptr) view_->update();
}

void Window::setFocus(Control& control) {
  if (view_ != nullptr) view_->setFocus(control);
}

std::optional<int> Window::findEntry(const ListBox& list, const std::u16string& text) const {
  return view_ == nullptr ? std::nullopt : view_->findEntry(list, text);
}

}  // namespace kvrnstep::forms
