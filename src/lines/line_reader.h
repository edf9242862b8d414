#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "lines/item.h"
#include "lines/text_lines.h"

namespace kvrnstep::lines {

/// What a line is for the lists around it.
enum class LineKind : std::uint8_t {
  Blank,
  Code,   ///< between fences, or the fence at its end
  Fence,  ///< at the beginning of code
  Heading,
  Bullet,
  Item,
  Text
};

/// The lines of a text, one after the other.
class LineReader {
 public:
  /// @param description of labels, or null, as `findItem` takes it
  LineReader(std::string_view text, const LineLabel* description)
      : text_(text), description_(description), line_{.next = byteOrderMark(text)} {}

  /// Goes on to the next line; false at the text's end.
  bool next();

  [[nodiscard]] LineKind kind() const { return kind_; }
  [[nodiscard]] const TextLine& line() const { return line_; }
  /// From 1 on.
  [[nodiscard]] std::size_t number() const { return number_; }
  [[nodiscard]] std::size_t depth() const { return depthOf(text_, line_); }
  /// Of a line that is one.
  [[nodiscard]] const Item& item() const { return item_; }

 private:
  [[nodiscard]] LineKind kindOf(std::string_view visible);
  void takeFence(std::string_view content);
  [[nodiscard]] bool isCode() const { return fenceLength_ > 0; }

  std::string_view text_;
  const LineLabel* description_;
  TextLine line_;
  std::size_t number_ = 0;
  LineKind kind_ = LineKind::Blank;
  Item item_;
  char fenceCharacter_ = '\0';
  std::size_t fenceLength_ = 0;  ///< 0 outside of code
};

}  // namespace kvrnstep::lines
