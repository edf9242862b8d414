#include "driving/properties.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <type_traits>

#include "forms/keyboard.h"
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

// What reads and what assigns a property: a member of the control, or a function on it.
template <auto Function>
struct Read;
template <class T, class Result, Result (T::*Function)() const>
struct Read<Function> {
  template <class Thing>
  static Value from(const Thing& thing) {
    return asValue((static_cast<const T&>(thing).*Function)());
  }
};
template <class T, class Result, Result (*Function)(const T&)>
struct Read<Function> {
  template <class Thing>
  static Value from(const Thing& thing) {
    return asValue(Function(static_cast<const T&>(thing)));
  }
};
template <auto Function>
struct Assign;
template <class T, class V, void (T::*Function)(V)>
struct Assign<Function> {
  template <class Thing>
  static bool to(Thing& thing, const std::u16string& word) {
    const auto value = parsed<std::remove_cvref_t<V>>(word);
    if (value) (static_cast<T&>(thing).*Function)(*value);
    return value.has_value();
  }
};
template <class T, class V, void (*Function)(T&, V)>
struct Assign<Function> {
  template <class Thing>
  static bool to(Thing& thing, const std::u16string& word) {
    const auto value = parsed<V>(word);
    if (value) Function(static_cast<T&>(thing), *value);
    return value.has_value();
  }
};

template <class T>
double left(const T& thing) {
  return thing.place().left;
}
template <class T>
double top(const T& thing) {
  return thing.place().top;
}
template <class T>
double width(const T& thing) {
  return thing.place().width;
}
template <class T>
double height(const T& thing) {
  return thing.place().height;
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
double start(const TextControl& box) {
  return static_cast<double>(box.selection().start);
}
double length(const TextControl& box) {
  return static_cast<double>(box.selection().length);
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
constexpr Kinds kAll = ~0U;
constexpr Kinds kText = of(Kind::TextBox) | of(Kind::ComboBox);

template <class Thing>
struct Property {
  std::string_view name;
  Kinds kinds;
  Value (*get)(const Thing& thing);
  bool (*set)(Thing& thing, const std::u16string& word) = nullptr;
};

template <auto Function>
constexpr auto get = &Read<Function>::template from<Control>;
template <auto Function>
constexpr auto set = &Assign<Function>::template to<Control>;

constexpr auto kOfControls = std::to_array<Property<Control>>({
    {"text", kText, get<&TextControl::text>, set<&TextControl::setText>},
    {"value", of(Kind::CheckBox), get<&CheckBox::value>, set<&CheckBox::setValue>},
    {"value", of(Kind::OptionButton), get<&OptionButton::value>, set<&OptionButton::setValue>},
    {"value", of(Kind::Spinner), get<&Spinner::value>, set<&Spinner::setValue>},
    {"caption", kAll, get<&Control::caption>, set<&Control::setCaption>},
    {"checked", of(Kind::CheckBox), get<&CheckBox::checked>, set<&check>},
    {"checked", of(Kind::OptionButton), get<&OptionButton::value>, set<&OptionButton::setValue>},
    {"checked", of(Kind::Menu), get<&MenuEntry::checked>, set<&MenuEntry::setChecked>},
    {"enabled", kAll, get<&Control::enabled>, set<&Control::setEnabled>},
    {"visible", kAll, get<&Control::visible>, set<&Control::setVisible>},
    {"tooltip", kAll, get<&toolTip>},
    {"left", kAll, get<&left<Control>>, set<&Control::setLeft>},
    {"top", kAll, get<&top<Control>>},
    {"width", kAll, get<&width<Control>>, set<&Control::setWidth>},
    {"height", kAll, get<&height<Control>>},
    {"index", of(Kind::ComboBox), get<&selected<ComboBox>>, set<&ComboBox::choose>},
    {"index", of(Kind::ListBox), get<&selected<ListBox>>, set<&ListBox::setIndex>},
    {"items", of(Kind::ComboBox), get<&items<ComboBox>>},
    {"items", of(Kind::ListBox), get<&items<ListBox>>},
    {"topindex", of(Kind::ListBox), get<&ListBox::topIndex>, set<&ListBox::setTopIndex>},
    {"selstart", kText, get<&start>, set<&setStart>},
    {"sellength", kText, get<&length>, set<&setLength>},
    {"font", of(Kind::TextBox), get<&TextBox::font>, set<&TextBox::setFont>},
    {"fontsize", of(Kind::TextBox), get<&TextBox::fontSize>, set<&TextBox::setFontSize>},
    {"backcolor", of(Kind::TextBox), get<&TextBox::backColor>, set<&TextBox::setBackColor>},
    {"forecolor", of(Kind::TextBox), get<&TextBox::foreColor>, set<&TextBox::setForeColor>},
    {"cursor", kAll, get<&Control::cursor>, set<&Control::setCursor>},
});

template <auto Function>
constexpr auto getOfWindow = &Read<Function>::template from<Window>;
template <auto Function>
constexpr auto setOfWindow = &Assign<Function>::template to<Window>;

constexpr auto kOfWindows = std::to_array<Property<Window>>({
    {"caption", kAll, getOfWindow<&Window::caption>},
    {"left", kAll, getOfWindow<&left<Window>>, setOfWindow<&Window::setLeft>},
    {"top", kAll, getOfWindow<&top<Window>>, setOfWindow<&Window::setTop>},
    {"width", kAll, getOfWindow<&width<Window>>, setOfWindow<&Window::setWidth>},
    {"height", kAll, getOfWindow<&height<Window>>, setOfWindow<&Window::setHeight>},
});

/// The row for things of that kind, or null.
template <class Table>
const auto* rowIn(const Table& table, Kinds kind, std::string_view name) {
  const auto* found = std::ranges::find_if(
      table, [&](const auto& row) { return row.name == name && (row.kinds & kind) != 0; });
  return found == table.end() ? nullptr : found;
}

/// The mark that shows a value of a check box: all values but 0 and 1 look the same.
double mark(double value) {
  return value == 0 || value == 1 ? value : 2;
}

}  // namespace

std::optional<Value> held(const Control& control, std::string_view property) {
  const auto* row = rowIn(kOfControls, of(control.kind()), property);
  if (row == nullptr) return std::nullopt;
  return row->get(control);
}

std::optional<Value> held(const Window& window, std::string_view property) {
  const auto* row = rowIn(kOfWindows, kAll, property);
  if (row == nullptr) return std::nullopt;
  return row->get(window);
}

bool assign(Control& control, std::string_view property, const std::u16string& word) {
  const auto* row = rowIn(kOfControls, of(control.kind()), property);
  return row != nullptr && row->set != nullptr && row->set(control, word);
}

bool assign(Window& window, std::string_view property, const std::u16string& word) {
  const auto* row = rowIn(kOfWindows, kAll, property);
  return row != nullptr && row->set != nullptr && row->set(window, word);
}

bool looksLike(const Control& control, std::string_view property, const Value& shown) {
  if (property == "caption" && control.kind() != Kind::Menu) {
    // The mark of a mnemonic is drawn only where the control has it.
    return shown == Value(std::u16string(forms::drawnCaption(control))) ||
           shown == Value(text::withoutMnemonic(control.caption()));
  }
  if (property == "value" && control.kind() == Kind::CheckBox) {
    return std::get<double>(shown) == mark(static_cast<const CheckBox&>(control).value());
  }
  return false;
}

}  // namespace kvrnstep::driving
