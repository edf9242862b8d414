#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "lines/item.h"
#include "lines/line_label.h"
#include "lines/text_lines.h"

namespace kvrnstep::lines {

/// Looks for the label that a line with text begins with.
/// @param described what labels look like; nothing for all that are a number, letters or a Roman
/// numeral with a delimiter and then a blank, a tab or the line's end
bool findItem(std::string_view text, const TextLine& line,
              const std::optional<LineLabel>& described, Item& item);

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

/// The lines of a part, one after the other.
class LineReader {
 public:
  /// @param described as `findItem` takes it; it is not copied
  LineReader(std::string_view text, const Part& part, const std::optional<LineLabel>& described)
      : text_(text.substr(0, part.end)), described_(described), line_(part.above()) {}

  /// Goes on to the next line; false at the end.
  bool next();

  [[nodiscard]] LineKind kind() const { return kind_; }
  [[nodiscard]] const TextLine& line() const { return line_; }
  /// Of a line that is one.
  [[nodiscard]] const Item& item() const { return item_; }

 private:
  [[nodiscard]] LineKind kindOf(std::string_view visible);
  void takeFence(std::string_view content);
  [[nodiscard]] bool isCode() const { return fenceLength_ > 0; }

  std::string_view text_;
  const std::optional<LineLabel>& described_;
  TextLine line_;
  LineKind kind_ = LineKind::Blank;
  Item item_;
  char fenceCharacter_ = '\0';
  std::size_t fenceLength_ = 0;  ///< 0 outside of code
};

}  // namespace kvrnstep::lines
