#include "driving/properties.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <type_traits>

#include "forms/keyboard.h"
#include "kvrnstep/fields.hpp"
#include "text/numbers.h"
#include "text/text.h"

namespace kvrnstep::driving {

using forms::CheckBox;
using forms::ComboBox;
using forms::Control;
using forms::Kind;
using forms::ListBox;
using forms::MenuEntry;
using forms::OptionButton;
using forms::Rect;
using forms::Spinner;
using forms::TextBox;
using forms::TextControl;
using forms::Window;

namespace {

template <class T>
Value asValue(const T& value) {
  if constexpr (std::is_same_v<T, bool>) {
    return value;
  } else if constexpr (std::is_arithmetic_v<T>) {
    return static_cast<double>(value);
  } else {
    return std::u16string(value);
  }
}

/// The word as a value of that type.
template <class T>
std::optional<T> parsed(const std::u16string& word) {
  if constexpr (std::is_same_v<T, bool>) {
    if (word != u"True" && word != u"False") return std::nullopt;
    return word == u"True";
  } else if constexpr (std::is_arithmetic_v<T>) {
    const auto number = text::wholeTextNumber(word);
    if (!number) return std::nullopt;
    if constexpr (std::is_floating_point_v<T>) return static_cast<T>(*number);
    return *number == std::nearbyint(*number) ? text::roundToInt32(*number) : std::nullopt;
  } else {
    return word;
  }
}

template <class T, double Rect::*Number>
double placed(const T& thing) {
  return thing.place().*Number;
}
std::u16string toolTip(const Control& control) {
  return std::u16string(control.row().toolTip);
}
void check(CheckBox& box, bool on) {
  box.setValue(on ? 1 : 0);
}
template <class T>
int selected(const T& list) {
  return list.entries().selected;
}
template <class T>
std::u16string items(const T& list) {
  return text::joined(list.entries().items);
}
std::int32_t start(const TextControl& box) {
  return static_cast<std::int32_t>(box.selection().start);
}
std::int32_t length(const TextControl& box) {
  return static_cast<std::int32_t>(box.selection().length);
}
void setStart(TextControl& box, std::int32_t start) {
  box.setSelection({static_cast<std::size_t>(std::max(start, 0)), 0});
}
void setLength(TextControl& box, std::int32_t length) {
  box.setSelection({box.selection().start, static_cast<std::size_t>(std::max(length, 0))});
}

using Kinds = unsigned;
constexpr Kinds of(Kind kind) {
  return 1U << static_cast<unsigned>(kind);
}
constexpr Kinds kWindow = of(Kind::Menu) << 1U;
constexpr Kinds kAll = kWindow - 1;
constexpr Kinds kText = of(Kind::TextBox) | of(Kind::ComboBox);

struct Property {
  std::string_view name;
  Kinds kinds;
  Value (*get)(Window& window, Control* control);
  bool (*set)(Window& window, Control* control, const std::u16string& word);
};

/// What has the properties of class T: the window or the control.
template <class T>
T& thing(Window& window, [[maybe_unused]] Control* control) {
  if constexpr (std::is_same_v<T, Window>) {
    return window;
  } else {
    return static_cast<T&>(*control);
  }
}

/// The row of a property of a class: what reads it and what assigns it, which are members of the
/// class or functions on it.
template <class T, auto Get, auto Set = nullptr>
constexpr Property row(std::string_view name,
                       Kinds kinds = std::is_same_v<T, Window> ? kWindow : kAll) {
  using Held = std::remove_cvref_t<std::invoke_result_t<decltype(Get), const T&>>;
  return {name, kinds,
          [](Window& window, Control* control) {
            return asValue(std::invoke(Get, thing<T>(window, control)));
          },
          []([[maybe_unused]] Window& window, [[maybe_unused]] Control* control,
             [[maybe_unused]] const std::u16string& word) {
            if constexpr (std::is_null_pointer_v<decltype(Set)>) {
              return false;
            } else {
              const auto value = parsed<Held>(word);
              if (value) std::invoke(Set, thing<T>(window, control), *value);
              return value.has_value();
            }
          }};
}

constexpr std::array kProperties{
    row<TextControl, &TextControl::text, &TextControl::setText>("text", kText),
    row<CheckBox, &CheckBox::value, &CheckBox::setValue>("value", of(Kind::CheckBox)),
    row<OptionButton, &OptionButton::value, &OptionButton::setValue>("value",
                                                                     of(Kind::OptionButton)),
    row<Spinner, &Spinner::value, &Spinner::setValue>("value", of(Kind::Spinner)),
    row<Control, &Control::caption, &Control::setCaption>("caption"),
    row<CheckBox, &CheckBox::checked, check>("checked", of(Kind::CheckBox)),
    row<OptionButton, &OptionButton::value, &OptionButton::setValue>("checked",
                                                                     of(Kind::OptionButton)),
    row<MenuEntry, &MenuEntry::checked, &MenuEntry::setChecked>("checked", of(Kind::Menu)),
    row<Control, &Control::enabled, &Control::setEnabled>("enabled"),
    row<Control, &Control::visible, &Control::setVisible>("visible"),
    row<Control, toolTip>("tooltip"),
    row<Control, placed<Control, &Rect::left>, &Control::setLeft>("left"),
    row<Control, placed<Control, &Rect::top>>("top"),
    row<Control, placed<Control, &Rect::width>, &Control::setWidth>("width"),
    row<Control, placed<Control, &Rect::height>>("height"),
    row<ComboBox, selected<ComboBox>, &ComboBox::choose>("index", of(Kind::ComboBox)),
    row<ListBox, selected<ListBox>, &ListBox::setIndex>("index", of(Kind::ListBox)),
    row<ComboBox, items<ComboBox>>("items", of(Kind::ComboBox)),
    row<ListBox, items<ListBox>>("items", of(Kind::ListBox)),
    row<ListBox, &ListBox::topIndex, &ListBox::setTopIndex>("topindex", of(Kind::ListBox)),
    row<TextControl, start, setStart>("selstart", kText),
    row<TextControl, length, setLength>("sellength", kText),
    row<TextBox, &TextBox::font, &TextBox::setFont>("font", of(Kind::TextBox)),
    row<TextBox, &TextBox::fontSize, &TextBox::setFontSize>("fontsize", of(Kind::TextBox)),
    row<TextBox, &TextBox::backColor, &TextBox::setBackColor>("backcolor", of(Kind::TextBox)),
    row<TextBox, &TextBox::foreColor, &TextBox::setForeColor>("forecolor", of(Kind::TextBox)),
    row<Control, &Control::cursor, &Control::setCursor>("cursor"),
    row<Window, &Window::caption>("caption"),
    row<Window, placed<Window, &Rect::left>, &Window::setLeft>("left"),
    row<Window, placed<Window, &Rect::top>, &Window::setTop>("top"),
    row<Window, placed<Window, &Rect::width>, &Window::setWidth>("width"),
    row<Window, placed<Window, &Rect::height>, &Window::setHeight>("height"),
};

/// Null where there is no property of that name.
const Property* propertyOf(const Control* control, std::string_view name) {
  const Kinds kind = control == nullptr ? kWindow : of(control->kind());
  const auto* found = std::ranges::find_if(kProperties, [&](const Property& property) {
    return property.name == name && (property.kinds & kind) != 0;
  });
  return found == kProperties.end() ? nullptr : found;
}

/// The mark that shows a value of a check box: all values but 0 and 1 look the same.
double mark(double value) {
  return value == 0 || value == 1 ? value : 2;
}

}  // namespace

std::optional<Value> held(Window& window, Control* control, std::string_view property) {
  const Property* found = propertyOf(control, property);
  return found == nullptr ? std::nullopt : std::optional(found->get(window, control));
}

bool assign(Window& window, Control* control, std::string_view property,
            const std::u16string& word) {
  const Property* found = propertyOf(control, property);
  return found != nullptr && found->set(window, control, word);
}

std::optional<Value> held(const plugin::HostContext& context, std::string_view field) {
  std::optional<Value> found;
  const auto fields = contextFields(context);
  const Parameter* parameter = kCallParameters.end() - std::tuple_size_v<decltype(fields)>;
  const auto look = [&](const auto& value) {
    if (std::ranges::equal((parameter++)->name, field)) found = asValue(value);
  };
  std::apply([&](const auto&... value) { (look(value), ...); }, fields);
  return found;
}

bool looksLike(const Control& control, std::string_view property, const Value& shown) {
  if (property == "caption" && control.kind() != Kind::Menu) {
    // Front ends leave the mark of a mnemonic out where the control has none.
    return shown == Value(std::u16string(forms::drawnCaption(control))) ||
           shown == Value(text::withoutMnemonic(control.caption()));
  }
  if (property == "value" && control.kind() == Kind::CheckBox) {
    return std::get<double>(shown) == mark(static_cast<const CheckBox&>(control).value());
  }
  return false;
}

}  // namespace kvrnstep::driving
