#pragma once

#include <cstddef>
#include <string>

#include "generator/list_settings.h"

namespace kvrnstep::judges {

/// A list once more, put together line by line with plain strings: the judge of the generator.
/// Numerals of 0 to 99 are its own; those beyond have tables of their own in the tests.
/// @param indentBlanks blanks of the indentation
/// @pre right-aligned labels end at step 99
std::u16string obviousList(const generator::ListSettings& settings, std::size_t indentBlanks);

}  // namespace kvrnstep::judges
