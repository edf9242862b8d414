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

LineLayout::LineLayout(const ListSettings& settings, std::u16string start)
    : pattern_(labelPattern(settings)),
      selection_(settings.Selection),
      ordinal_(settings.Selection == Numbered && settings.on(AppendOrdinal)) {
  const bool addBlank = settings.on(PreSufSpace);
  pieces_.back().text = std::move(start);
  addAffix(settings.Prefix, addBlank);
  add({{}, Filler::Label, {}});
  addAffix(settings.Suffix, addBlank);
}

void LineLayout::addAffix(std::u16string affix, bool addBlank) {
  if (addBlank && !affix.empty() && affix.back() != u' ') affix += u' ';
  Pieces cut = cutAtMacros(affix);
  if (lettersCompleteMacros(cut)) {
    add({{}, Filler::Affix, std::move(affix)});
    return;
  }
  for (Piece& piece : cut) add(std::move(piece));
}

void LineLayout::add(Piece piece) {
  Piece& last = pieces_.back();
  last.text += piece.text;
  last.filler = piece.filler;
  last.affix = std::move(piece.affix);
  if (last.filler != Filler::None) pieces_.emplace_back();
}

LineLayout::Pieces LineLayout::cutAtMacros(std::u16string_view affix) {
  static constexpr std::array<std::pair<std::u16string_view, Filler>, 3> kMacros{
      {{kNumberMacro, Filler::Number},
       {kLettersMacro, Filler::Letters},
       {kRomanMacro, Filler::Roman}}};
  Pieces pieces;
  std::size_t searchFrom = 0;
  while (true) {
    const std::size_t brace = affix.find(u'{', searchFrom);
    if (brace == std::u16string_view::npos) break;
    const auto* macro = std::ranges::find_if(
        kMacros, [&](const auto& entry) { return affix.substr(brace).starts_with(entry.first); });
    if (macro == kMacros.end()) {
      searchFrom = brace + 1;
      continue;
    }
    pieces.push_back({std::u16string(affix.substr(0, brace)), macro->second, {}});
    affix.remove_prefix(brace + macro->first.size());
    searchFrom = 0;
  }
  pieces.push_back({std::u16string(affix), Filler::None, {}});
  return pieces;
}

/// Whether letters put in for a macro can complete another macro. They hold one kind of brace at
/// most, so what they complete has another one of its own.
bool LineLayout::lettersCompleteMacros(const Pieces& affix) {
  return std::ranges::any_of(affix, [](const Piece& p) { return p.filler == Filler::Letters; }) &&
         std::ranges::any_of(affix, [](const Piece& p) {
           return p.text.find_first_of(u"{}") != std::u16string::npos;
         });
}

void LineLayout::appendLine(TextBuilder& list, int step, std::size_t skip) const {
  for (const Piece& piece : pieces_) {
    list.append(std::u16string_view(piece.text).substr(skip));
    skip = 0;
    appendFiller(list, piece, step);
  }
}

void LineLayout::appendFiller(TextBuilder& list, const Piece& piece, int step) const {
  switch (piece.filler) {
    case Filler::Label:
      appendLabel(list, step);
      break;
    case Filler::Number:
      appendNumber(list, step);
      break;
    case Filler::Letters:
      appendLetters(list, step);
      break;
    case Filler::Roman:
      appendRoman(list, step);
      break;
    case Filler::Affix:
      list.append(withMacros(piece.affix, step));
      break;
    case Filler::None:
      break;
  }
}

std::size_t LineLayout::expectedSize() const {
  constexpr std::size_t kFiller = 5;
  std::size_t size = 0;
  for (const Piece& piece : pieces_) size += piece.text.size() + piece.affix.size() + kFiller;
  return size;
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
