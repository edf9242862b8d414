#pragma once

#include <concepts>
#include <string>

#include "kvrnstep/component.hpp"

/// Reads what late-bound callers pass as the type of a parameter. Each function returns S_OK,
/// DISP_E_TYPEMISMATCH or DISP_E_OVERFLOW, and leaves `value` alone where it fails.
namespace kvrnstep::component {

/// The variant itself, or the one that it refers to.
const VARIANT& referred(const VARIANT& argument);

/// Whether the caller left this argument out.
bool isMissing(const VARIANT& argument);

/// An object stands for its default property. An empty variant is an empty text; numbers are
/// written in decimal.
HRESULT readValue(const VARIANT& argument, std::u16string& value);
/// Numbers of any type and texts that are numbers, rounded with halves to even; True is −1, in a
/// byte 255; an empty variant is 0.
template <std::integral Whole>
HRESULT readValue(const VARIANT& argument, Whole& value);
/// Any number but 0 is True, and so is the text "True".
HRESULT readValue(const VARIANT& argument, bool& value);

/// Writes a text back into an argument. An argument that was passed by value is left as it is.
struct TextTarget {
  const VARIANT* argument = nullptr;
};
HRESULT readValue(const VARIANT& argument, TextTarget& value);
/// @throws std::bad_alloc
void writeText(const TextTarget& target, const std::u16string& text);

}  // namespace kvrnstep::component
