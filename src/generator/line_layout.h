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

/// A prefix or suffix, cut up once at its macros so that each line only fills in the numbers.
class Affix {
 public:
  /// With `addBlank`, a text that is not empty and ends in no blank gets one.
  Affix(std::u16string_view text, bool addBlank);

  /// Appends what withMacros() gives.
  void appendTo(TextBuilder& line, int step) const;
  /// Characters that are appended, about.
  [[nodiscard]] std::size_t expectedSize() const;

 private:
  enum class Macro : std::uint8_t { None, Number, Letters, Roman };
  void cutAtMacros(std::u16string_view rest);

  struct Piece {
    std::u16string text;
    Macro macro;  ///< follows the text

    [[nodiscard]] bool takesLetters() const { return macro == Macro::Letters; }
    [[nodiscard]] bool holdsBrace() const {
      return text.find_first_of(u"{}") != std::u16string::npos;
    }
  };
  std::u16string text_;
  std::vector<Piece> pieces_;
  bool nested_;  ///< letters put in for a macro can complete another macro
};

/// Lays out the lines of one list. A line carries no line break.
class LineLayout {
 public:
  LineLayout(const ListSettings& settings, std::u16string indent);

  void appendLine(TextBuilder& list, int step) const;
  /// Characters of a line, about.
  [[nodiscard]] std::size_t expectedSize() const;

 private:
  void appendLabel(TextBuilder& list, int step) const;

  std::u16string indent_;
  Affix prefix_;
  Affix suffix_;
  LabelPattern pattern_;
  std::int16_t selection_;
  bool ordinal_;
};

}  // namespace kvrnstep::generator
