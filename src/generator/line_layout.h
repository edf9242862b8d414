#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "generator/list_settings.h"
#include "generator/text_builder.h"

namespace kvrnstep::generator {

/// How labels are padded and cased: blanks are added on the left up to the width; a longer label
/// stays whole.
struct LabelPattern {
  std::size_t width = 0;
  bool lowerCase = false;

  bool operator==(const LabelPattern&) const = default;
};

/// The pattern for a kind of list. Aligned labels are as wide as the widest one from step 1 to
/// the last step, wherever the list starts.
LabelPattern labelPattern(const ListSettings& settings);

/// The text with every "{STEP_#}" replaced by the step's number, then every "{STEP_L}" by its
/// letters, then every "{STEP_R}" by its Roman numeral.
std::u16string withMacros(std::u16string_view text, int step);

/// Lays out the lines of one list. All that the lines have in common is put together once, so that
/// each line only fills in what its step makes different.
class LineLayout {
 public:
  /// @param start what each line begins with, before the prefix
  LineLayout(const ListSettings& settings, std::u16string start);

  /// @param skip characters of the start that this line does without
  void appendLine(TextBuilder& list, int step, std::size_t skip = 0) const;
  /// Characters of a line, about.
  [[nodiscard]] std::size_t expectedSize() const;

 private:
  enum class Filler : std::uint8_t { None, Label, Number, Letters, Roman, Affix };

  /// A part of all lines, and what a step puts behind it.
  struct Piece {
    std::u16string text;
    Filler filler = Filler::None;
    std::u16string affix;  ///< with Filler::Affix: its macros are looked for in each line
  };
  using Pieces = std::vector<Piece>;

  static Pieces cutAtMacros(std::u16string_view affix);
  static bool lettersCompleteMacros(const Pieces& affix);
  void addAffix(std::u16string affix, bool addBlank);
  void add(Piece piece);
  void appendFiller(TextBuilder& list, const Piece& piece, int step) const;
  void appendLabel(TextBuilder& list, int step) const;

  Pieces pieces_{1};  ///< only the last one has no filler
  LabelPattern pattern_;
  std::int16_t selection_;
  bool ordinal_;
};

}  // namespace kvrnstep::generator
