#include "generator/line_layout.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "generator/numerals.h"
#include "platform/letter_case.h"
#include "text/numbers.h"
#include "text/text.h"

namespace kvrnstep::generator {

namespace {

constexpr std::u16string_view kNumberMacro = u"{STEP_#}";
constexpr std::u16string_view kLettersMacro = u"{STEP_L}";
constexpr std::u16string_view kRomanMacro = u"{STEP_R}";

/// Letters of steps beyond 99 leave the alphabet.
char16_t smallLetter(char16_t c) {
  if (c >= u'A' && c <= u'Z') return static_cast<char16_t>(c - u'A' + u'a');
  return c < 0x80 ? c : platform::lowerCase(c);
}

/// The widest label up to a last step: the first row whose `upTo` is not passed gives the width.
struct WidthRow {
  int upTo;
  std::size_t width;
};

constexpr std::array<WidthRow, 4> kLetterWidths{{{26, 1}, {52, 2}, {78, 3}, {99, 4}}};
constexpr std::array<WidthRow, 8> kRomanWidths{
    {{1, 1}, {2, 2}, {7, 3}, {17, 4}, {27, 5}, {37, 6}, {87, 7}, {99, 8}}};

std::size_t widestLabel(std::span<const WidthRow> rows, int count) {
  const auto row = std::ranges::find_if(rows, [&](const WidthRow& r) { return count <= r.upTo; });
  return row == rows.end() ? 0 : row->width;
}

std::size_t labelWidth(std::int16_t selection, bool aligned, int count) {
  if (!aligned) return 1;
  switch (selection) {
    case Numbered:
      return count <= 9 ? 1 : 2;
    case Alphabetical:
      return widestLabel(kLetterWidths, count);
    default:
      return widestLabel(kRomanWidths, count);
  }
}

}  // namespace

LabelPattern labelPattern(const ListSettings& settings) {
  if (settings.Selection == PrefixSuffix) return {};
  const bool hasCase = settings.Selection == Alphabetical || settings.Selection == RomanNumeral;
  return {labelWidth(settings.Selection, settings.on(RightAlign), settings.Count),
          hasCase && !settings.on(UpperCase)};
}

std::u16string withMacros(std::u16string_view text, int step) {
  const auto numbered = text::ReplaceText(text, kNumberMacro, text::decimal(step));
  const auto lettered = text::ReplaceText(numbered, kLettersMacro, ToStepLetters(step));
  return text::ReplaceText(lettered, kRomanMacro, ToRomanNumeral(step));
}

Affix::Affix(std::u16string_view text, bool addBlank) : text_(text) {
  if (addBlank && !text_.empty() && text_.back() != u' ') text_ += u' ';
  cutAtMacros(text_);
  // Letters hold one kind of brace at most, so what they complete has another one of its own.
  nested_ = std::ranges::any_of(pieces_, &Piece::takesLetters) &&
            std::ranges::any_of(pieces_, &Piece::holdsBrace);
}

void Affix::cutAtMacros(std::u16string_view rest) {
  static constexpr std::array<std::pair<std::u16string_view, Macro>, 3> kMacros{
      {{kNumberMacro, Macro::Number},
       {kLettersMacro, Macro::Letters},
       {kRomanMacro, Macro::Roman}}};
  std::size_t searchFrom = 0;
  while (true) {
    const std::size_t brace = rest.find(u'{', searchFrom);
    if (brace == std::u16string_view::npos) break;
    const auto* macro = std::ranges::find_if(
        kMacros, [&](const auto& entry) { return rest.substr(brace).starts_with(entry.first); });
    if (macro == kMacros.end()) {
      searchFrom = brace + 1;
      continue;
    }
    pieces_.push_back({std::u16string(rest.substr(0, brace)), macro->second});
    rest.remove_prefix(brace + macro->first.size());
    searchFrom = 0;
  }
  pieces_.push_back({std::u16string(rest), Macro::None});
}

void Affix::appendTo(TextBuilder& line, int step) const {
  if (nested_) {
    line.append(withMacros(text_, step));
    return;
  }
  for (const Piece& piece : pieces_) {
    line.append(piece.text);
    switch (piece.macro) {
      case Macro::Number:
        appendNumber(line, step);
        break;
      case Macro::Letters:
        appendLetters(line, step);
        break;
      case Macro::Roman:
        appendRoman(line, step);
        break;
      case Macro::None:
        break;
    }
  }
}

std::size_t Affix::expectedSize() const {
  constexpr std::size_t kNumeral = 4;
  return text_.size() + pieces_.size() * kNumeral;
}

LineLayout::LineLayout(const ListSettings& settings, std::u16string indent)
    : indent_(std::move(indent)),
      prefix_(settings.Prefix, settings.on(PreSufSpace)),
      suffix_(settings.Suffix, settings.on(PreSufSpace)),
      pattern_(labelPattern(settings)),
      selection_(settings.Selection),
      ordinal_(settings.Selection == Numbered && settings.on(AppendOrdinal)) {}

void LineLayout::appendLine(TextBuilder& list, int step) const {
  list.append(indent_);
  prefix_.appendTo(list, step);
  appendLabel(list, step);
  suffix_.appendTo(list, step);
}

std::size_t LineLayout::expectedSize() const {
  constexpr std::size_t kLabel = 8;
  return indent_.size() + prefix_.expectedSize() + kLabel + suffix_.expectedSize();
}

void LineLayout::appendLabel(TextBuilder& list, int step) const {
  const std::size_t begin = list.size();
  switch (selection_) {
    case Numbered:
      if (step != 0) appendNumber(list, step);
      break;
    case Alphabetical:
      appendLetters(list, step);
      break;
    case RomanNumeral:
      appendRoman(list, step);
      break;
    default:
      return;
  }
  if (pattern_.lowerCase) list.changeFrom(begin, smallLetter);
  const std::size_t length = list.size() - begin;
  if (length < pattern_.width) list.insertBlanks(begin, pattern_.width - length);
  if (ordinal_) appendOrdinal(list, step);
}

}  // namespace kvrnstep::generator
