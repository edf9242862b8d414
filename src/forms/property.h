#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace kvrnstep::forms {

/// What can be read from, and in part assigned to, a control or a window by name.
enum class Property : std::uint8_t {
  Text,
  Value,
  Caption,
  Checked,
  Enabled,
  Visible,
  ToolTip,
  Left,
  Top,
  Width,
  Height,
  Index,
  Items,
  TopIndex,
  SelStart,
  SelLength,
  Font,
  FontSize,
  BackColor,
  ForeColor,
  Cursor,
  Picture,
};

/// The value of a property: a truth value, a number or a text.
using PropertyValue = std::variant<bool, double, std::u16string>;

/// The property of that name as scripts write it ("selstart"), or nothing.
std::optional<Property> propertyByName(std::string_view name);

}  // namespace kvrnstep::forms
