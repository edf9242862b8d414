#pragma once

#include <cstdint>
#include <string>

#include "kvrnstep/component.hpp"

/// What late-bound callers pass, read as what a member wants. Each function gives S_OK,
/// DISP_E_TYPEMISMATCH or DISP_E_OVERFLOW, and leaves `value` alone where it fails.
namespace kvrnstep::component {

/// The variant itself, or the one that it refers to.
const VARIANT& referred(const VARIANT& argument);

/// Whether the argument stands for one that was left out.
bool isMissing(const VARIANT& argument);

/// Nothing at all is an empty text; numbers are written in decimal.
HRESULT readValue(const VARIANT& argument, std::u16string& value);
/// Numbers of any type and texts that are numbers, rounded with halves to even; True is −1, and
/// all bits of a byte; nothing at all is 0.
HRESULT readValue(const VARIANT& argument, std::int16_t& value);
HRESULT readValue(const VARIANT& argument, std::int32_t& value);
HRESULT readValue(const VARIANT& argument, std::uint8_t& value);
/// Any number but 0 is True, and so is the text "True".
HRESULT readValue(const VARIANT& argument, bool& value);

/// Whether a text can be written back into the argument, or got lost as one that was passed by
/// value.
HRESULT checkTextTarget(const VARIANT& argument);
/// Writes the text back where the argument was passed by reference.
/// @throws std::bad_alloc
void writeText(const VARIANT& argument, const std::u16string& text);

}  // namespace kvrnstep::component
