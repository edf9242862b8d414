#pragma once

#include <string_view>

#include "lines/lines.h"
#include "lines/rules.h"
#include "lines/text_lines.h"

namespace kvrnstep::lines {

/// The paragraph of `options.line`; all of the text, a mark at its beginning aside, where that is
/// 0.
Part paragraphOf(std::string_view text, const LineOptions& options);
/// The lines around it up to where all lists end: at a heading that is not indented, or at such
/// text that is no item and has a blank line above.
Part listsOf(std::string_view text, const Rules& rules);

/// Takes away what `number` with the same options has put in; the rest of the text stays.
/// @return false, and nothing is written, where the part is not as `number` makes it
bool undoNumber(std::string_view text, const Part& part, const LineOptions& options,
                const Write& write);

/// Sets the labels of the lists in the part right; the rest of the text stays.
/// @throws NoLabel before anything is written
void renumberPart(std::string_view text, const Part& part, const Rules& rules, const Write& write);

}  // namespace kvrnstep::lines
