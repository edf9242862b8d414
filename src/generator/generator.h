#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "generator/list_settings.h"

namespace kvrnstep::generator {

/// The text between two steps: the line break, then `iLines` times the fill and the line break.
/// More than nine lines are nine; a negative number gives an empty text.
std::u16string BuildLineSpacing(std::u16string_view vSeparator, int iLines,
                                std::u16string_view sFill);

/// The list that the record describes, with CR LF line breaks. Nothing where it would have more
/// than KVRNSTEP_LONGEST_LIST UTF-16 units.
/// @param indentBlanks blanks in one indentation, 0 to 255
std::optional<std::u16string> generateList(const ListSettings& settings, std::size_t indentBlanks);

}  // namespace kvrnstep::generator
