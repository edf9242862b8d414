#pragma once

#include <cstdint>

namespace kvrnstep::forms {

/// What a front end shows of a control or a window, and is told of when it changes.
enum class Property : std::uint8_t {
  Text,
  Value,
  Caption,
  Checked,
  Enabled,
  Visible,
  Left,
  Top,
  Width,
  Height,
  Index,
  Items,
  TopIndex,
  SelStart,
  Font,
  FontSize,
  BackColor,
  ForeColor,
  Cursor,
  Picture,
};

}  // namespace kvrnstep::forms
