#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "generator/list_settings.h"

/// Numbers for lines that are there: labels put before them, set right and taken away. Texts are
/// bytes in which blanks, line ends, digits and letters are those of ASCII; all other bytes pass
/// through as they are. The rules are those of docs/number-lines.md.
namespace kvrnstep::lines {

struct LineOptions {
  /// What the labels look like. Nothing: "1. " and so on where labels are put, and whatever labels
  /// there are where they are looked for. Its Start and Count are not read.
  std::optional<generator::ListSettings> list;
  std::size_t indentBlanks = 4;  ///< blanks in one indentation
  std::int64_t start = 1;        ///< number of the first line, or of the first list
  std::int64_t step = 1;         ///< from one number to the next; not 0
  std::size_t digits = 0;        ///< decimal numbers are filled up to them with zeros
  bool keepStart = false;        ///< renumber: every list begins where it does
  /// From 1 on: only what is around that line changes. `number`: its paragraph; otherwise the lists
  /// up to where all lists end. One behind the last is the text's end.
  std::size_t line = 0;
};

/// Takes the new text, block by block.
using Write = std::function<void(std::string_view)>;

/// A label cannot be written; the message says which, and where.
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

/// Puts labels before the lines from `line` to the text's end that go on behind the last label
/// above which is no further in, and come at its depth. From an empty line any label counts.
/// @throws NoLabel before anything is written, also where there is no label above
void continueList(std::string_view text, const LineOptions& options, const Write& write);

}  // namespace kvrnstep::lines
