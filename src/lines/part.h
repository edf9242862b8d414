#pragma once

#include <cstddef>
#include <string_view>

#include "lines/lines.h"

namespace kvrnstep::lines {

/// Whole lines of a text.
struct Part {
  std::size_t begin = 0;
  std::size_t end = 0;
  std::size_t linesAbove = 0;
};

/// The paragraph of `options.line`.
Part paragraphAround(std::string_view text, const LineOptions& options);
/// The lines around `options.line` up to where all lists end: at a heading that is not indented, or
/// at such text that is no item and has a blank line above.
Part listsAround(std::string_view text, const LineOptions& options);

/// Changes the part as a text of its own, and keeps the rest.
void changePart(const Part& part, decltype(number)& change, std::string_view text,
                const LineOptions& options, const Write& write);

}  // namespace kvrnstep::lines
