#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "generator/list_settings.h"
#include "lines/item.h"
#include "lines/labels.h"

namespace kvrnstep::lines {

/// What the settings of a list put before each line: prefix, label and suffix.
class LineLabel {
 public:
  /// A suffix that is empty is ". ", since a label needs something between itself and the line.
  /// @param digits decimal labels get zeros in front up to so many digits
  LineLabel(const generator::ListSettings& settings, std::size_t digits);
  /// A label that has nothing but a delimiter.
  LineLabel(const LabelStyle& style, char delimiter)
      : pieces_{{.style = style, .isLabel = true}, {.text = {delimiter}}} {}

  /// Whether the number can be written, as label and in macros.
  [[nodiscard]] bool exists(std::int64_t number) const;
  /// @throws NoLabel where it cannot
  void require(std::int64_t number, std::size_t line) const;
  /// Adds prefix, label and suffix.
  /// @param width the width up to which the label gets blanks on its left
  void append(std::string& text, std::int64_t number, std::size_t width) const;
  /// The same without the blanks at both ends.
  void appendVisible(std::string& text, std::int64_t number, std::size_t width) const;

  /// Looks for prefix, label and suffix in a line, from behind its blanks on. Where the suffix ends
  /// in a blank, any blanks or the line's end will do. Places count from there.
  bool find(std::string_view line, Item& item) const;

  /// The blanks that the prefix begins with.
  [[nodiscard]] const std::string& leadingBlanks() const { return leadingBlanks_; }
  /// Whether nothing visible is before the label.
  [[nodiscard]] bool beginsWithLabel() const { return pieces_.front().text.empty(); }
  /// Whether labels have numbers; with only a prefix and a suffix they have none.
  [[nodiscard]] bool numbered() const { return pieces_.size() > 1; }
  /// Whether labels are filled up with blanks to one width.
  [[nodiscard]] bool rightAligned() const { return rightAligned_; }
  /// Of the label itself, where there is one.
  [[nodiscard]] const LabelStyle& style() const;

 private:
  /// A text, and the label or macro behind it.
  struct Piece {
    std::string text;
    LabelStyle style;
    bool isLabel = false;  ///< and no macro
  };

  bool findNumber(const Piece& piece, std::string_view line, Item& item) const;
  void addAffix(std::string affix, bool addBlank);

  std::string leadingBlanks_;
  std::vector<Piece> pieces_{1};  ///< behind the last one there is only text
  std::string trailingBlanks_;
  bool rightAligned_ = false;
};

}  // namespace kvrnstep::lines
