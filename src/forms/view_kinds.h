#pragma once

#include <memory>

#include "forms/view_sync.h"

namespace kvrnstep::forms {

/// Makes the view of a control, of the class that a front end has for its kind.
template <class ContainerView, class ButtonView, class CheckBoxView, class OptionButtonView,
          class ComboView, class TextBoxView, class SpinnerView, class ListView, class LabelView,
          class ImageView, class StatusBarView, class MenuView, class WindowView>
std::unique_ptr<ControlSync> makeViewOf(WindowView& window, Control& control) {
  switch (control.kind()) {
    case Kind::Frame:
    case Kind::Panel:
      break;
    case Kind::Button:
      return std::make_unique<ButtonView>(window, control);
    case Kind::CheckBox:
      return std::make_unique<CheckBoxView>(window, control);
    case Kind::OptionButton:
      return std::make_unique<OptionButtonView>(window, control);
    case Kind::ComboBox:
      return std::make_unique<ComboView>(window, static_cast<ComboBox&>(control));
    case Kind::TextBox:
      return std::make_unique<TextBoxView>(window, static_cast<TextBox&>(control));
    case Kind::Spinner:
      return std::make_unique<SpinnerView>(window, static_cast<Spinner&>(control));
    case Kind::ListBox:
      return std::make_unique<ListView>(window, static_cast<ListBox&>(control));
    case Kind::Label:
      return std::make_unique<LabelView>(window, control);
    case Kind::Image:
      return std::make_unique<ImageView>(window, control);
    case Kind::StatusBar:
      return std::make_unique<StatusBarView>(window, control);
    case Kind::Menu:
      return std::make_unique<MenuView>(window, static_cast<MenuEntry&>(control));
  }
  return std::make_unique<ContainerView>(window, control);
}

}  // namespace kvrnstep::forms
