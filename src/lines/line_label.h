#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "generator/list_settings.h"
#include "lines/labels.h"

namespace kvrnstep::lines {

/// A label with its prefix and suffix, as it was found in a line. Places count from the line's
/// first character behind its blanks.
struct FoundLabel {
  std::size_t field = 0;  ///< where the blanks that align the label behind its prefix begin
  std::size_t label = 0;  ///< where the label begins
  std::size_t width = 0;  ///< of the label, blanks and ordinal aside
  std::size_t end = 0;    ///< behind the suffix, blanks at its end aside
  std::int64_t number = -1;
};

/// What the settings of a list put before each line: prefix, label and suffix.
class LineLabel {
 public:
  /// A suffix that is empty is ". ", since a label needs something between itself and the line.
  /// @param digits decimal labels are filled up to them with zeros
  LineLabel(const generator::ListSettings& settings, std::size_t digits);

  /// In what the number cannot be written; nothing where all labels and macros exist.
  [[nodiscard]] std::optional<Numerals> missing(std::int64_t number) const;
  /// The widest of so many labels, prefix and suffix aside; 0 where labels are not aligned.
  [[nodiscard]] std::size_t alignedWidth(const Sequence& numbers, std::size_t count) const;
  /// Adds prefix, label and suffix.
  /// @param width what the label is filled up to with blanks, on its left
  void append(std::string& text, std::int64_t number, std::size_t width) const;

  /// Looks for prefix, label and suffix in a line, from behind its blanks on. Where the suffix ends
  /// in a blank, any blanks or the line's end will do.
  [[nodiscard]] std::optional<FoundLabel> find(std::string_view line) const;

  /// The blanks that the prefix begins with.
  [[nodiscard]] std::string_view leadingBlanks() const;
  /// Whether nothing visible stands before the label.
  [[nodiscard]] bool beginsWithLabel() const;
  /// Whether numbers follow from the labels: they do not where there is only prefix and suffix.
  [[nodiscard]] bool numbered() const { return pieces_.size() > 1; }
  /// Whether labels are filled up with blanks to one width.
  [[nodiscard]] bool rightAligned() const { return rightAligned_; }

 private:
  /// A text, and the label or macro behind it.
  struct Piece {
    std::string text;
    LabelStyle style;
    bool isLabel = false;  ///< and no macro
  };

  bool findNumber(const Piece& piece, std::string_view line, FoundLabel& found) const;
  void addAffix(std::string affix, bool addBlank);

  std::vector<Piece> pieces_{1};  ///< behind the last one there is only text
  bool rightAligned_;
};

}  // namespace kvrnstep::lines
