#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "generator/list_settings.h"

/// Labels of the lines of a text: they are put before lines, set right, and taken away. Texts are
/// bytes in which blanks, line ends, digits and letters are those of ASCII; all other bytes pass
/// through as they are. The rules are those of docs/number-lines.md.
namespace kvrnstep::lines {

struct LineOptions {
  /// What the labels look like. If nothing is given, new labels are "1. " and so on, and labels of
  /// all kinds are found. Its Start and Count are not read.
  std::optional<generator::ListSettings> list;
  std::size_t indentBlanks = 4;  ///< blanks in one indentation
  std::int64_t start = 1;        ///< number of the first line, or of the first list
  std::int64_t step = 1;         ///< from one number to the next; not 0
  std::size_t digits = 0;        ///< decimal numbers get zeros in front up to so many digits
  bool keepStart = false;        ///< renumber: every list keeps its first number
  /// If it is not 0, only the surroundings of that line change: `number` changes its paragraph, the
  /// others change the lists around it. The number behind the last line is the text's end.
  std::size_t line = 0;
};

/// Takes the new text, block by block.
using Write = std::function<void(std::string_view)>;

/// A label does not exist; the message says which, and where.
struct NoLabel : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Puts a label before every line that has text.
/// @throws NoLabel before anything is written
void number(std::string_view text, const LineOptions& options, const Write& write);

/// Sets the labels of the lists in the text right.
/// @throws NoLabel before anything is written
void renumber(std::string_view text, const LineOptions& options, const Write& write);

/// Takes labels away: undoes `number` with the same options exactly, and takes the labels of the
/// lists that `renumber` would find from any other text.
void unnumber(std::string_view text, const LineOptions& options, const Write& write);

/// Puts labels before the lines from `line` to the text's end. They follow the last label above
/// that is not indented deeper, and get its indentation. If the line is empty, they follow the last
/// label of all.
/// @throws NoLabel before anything is written, also where there is no label above
void continueList(std::string_view text, const LineOptions& options, const Write& write);

}  // namespace kvrnstep::lines
