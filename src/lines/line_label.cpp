#include "lines/line_label.h"

#include <algorithm>
#include <array>
#include <utility>

#include "lines/text_lines.h"
#include "text/codepage.h"

namespace kvrnstep::lines {

namespace {

constexpr std::array<std::pair<std::string_view, Numerals>, 3> kMacros{
    {{"{STEP_#}", Numerals::Decimal},
     {"{STEP_L}", Numerals::Letters},
     {"{STEP_R}", Numerals::Roman}}};

LabelStyle labelStyle(const generator::ListSettings& settings, std::size_t digits) {
  const bool upperCase = settings.on(generator::UpperCase);
  switch (settings.Selection) {
    case generator::Alphabetical:
      return {.numerals = Numerals::Letters, .upperCase = upperCase};
    case generator::RomanNumeral:
      return {.numerals = Numerals::Roman, .upperCase = upperCase};
    default:
      return {.ordinal = settings.on(generator::AppendOrdinal), .digits = digits};
  }
}

constexpr std::string_view kBlanks = " \t";

std::string_view withoutLeadingBlanks(std::string_view text) {
  return text.substr(behindBlanks(text, 0));
}

bool isWordAt(std::string_view text, std::size_t place) {
  constexpr std::string_view kWord =
      "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  return place < text.size() && kWord.find(text[place]) != std::string_view::npos;
}

}  // namespace

LineLabel::LineLabel(const generator::ListSettings& settings, std::size_t digits)
    : rightAligned_(settings.on(generator::RightAlign)) {
  const bool hasLabel = settings.Selection != generator::PrefixSuffix;
  const bool addBlank = settings.on(generator::PreSufSpace);
  addAffix(text::toUtf8(settings.Prefix), addBlank);
  if (hasLabel) {
    pieces_.back().style = labelStyle(settings, digits);
    pieces_.back().isLabel = true;
    pieces_.emplace_back();
  }
  addAffix(hasLabel && settings.Suffix.empty() ? ". " : text::toUtf8(settings.Suffix), addBlank);
  rightAligned_ = rightAligned_ && hasLabel;
}

void LineLabel::addAffix(std::string affix, bool addBlank) {
  if (addBlank && !affix.empty() && !affix.ends_with(' ')) affix += ' ';
  for (std::string_view rest = affix; !rest.empty();) {
    const auto* const macro = std::ranges::find_if(
        kMacros, [&](const auto& known) { return rest.starts_with(known.first); });
    if (macro == kMacros.end()) {
      pieces_.back().text += rest.front();
      rest.remove_prefix(1);
    } else {
      pieces_.back().style = {.numerals = macro->second, .upperCase = true};
      pieces_.emplace_back();
      rest.remove_prefix(macro->first.size());
    }
  }
}

std::optional<Numerals> LineLabel::missing(std::int64_t number) const {
  for (std::size_t i = 0; i + 1 < pieces_.size(); ++i) {
    const Numerals numerals = pieces_[i].style.numerals;
    if (!labelExists(numerals, number)) return numerals;
  }
  return std::nullopt;
}

std::size_t LineLabel::alignedWidth(const Sequence& numbers, std::size_t count) const {
  if (!rightAligned_ || count == 0) return 0;
  return widestLabel(std::ranges::find_if(pieces_, &Piece::isLabel)->style, numbers, count);
}

void LineLabel::append(std::string& text, std::int64_t number, std::size_t width) const {
  for (const Piece& piece : pieces_) {
    text += piece.text;
    if (&piece == &pieces_.back()) return;
    if (piece.isLabel && width > 1) {
      text.append(width - std::min(width, labelWidth(piece.style, number)), ' ');
    }
    appendLabel(text, piece.style, number);
  }
}

std::string_view LineLabel::leadingBlanks() const {
  const std::string_view first = pieces_.front().text;
  return first.substr(0, behindBlanks(first, 0));
}

bool LineLabel::beginsWithLabel() const {
  return withoutLeadingBlanks(pieces_.front().text).empty();
}

bool LineLabel::findNumber(const Piece& piece, std::string_view line, FoundLabel& found) const {
  const std::size_t field = found.end;
  const std::size_t label = piece.isLabel && rightAligned_ ? behindBlanks(line, field) : field;
  std::int64_t number = -1;
  const std::size_t length = findLabel(piece.style, line.substr(label), number);
  if (length == 0) return false;
  // What a macro stands for counts where there is no label.
  if (piece.isLabel || found.number < 0) {
    found = {.field = field,
             .label = label,
             .width = length - (piece.style.ordinal && number > 0 ? 2 : 0),
             .number = number};
  }
  found.end = label + length;
  return true;
}

std::optional<FoundLabel> LineLabel::find(std::string_view line) const {
  FoundLabel found;
  for (const Piece& piece : pieces_) {
    const bool isFirst = &piece == &pieces_.front();
    const bool isLast = &piece == &pieces_.back();
    std::string_view text = isFirst ? withoutLeadingBlanks(piece.text) : piece.text;
    const std::size_t visible = isLast ? text.find_last_not_of(kBlanks) + 1 : text.size();
    const bool endsInBlank = visible < text.size();
    text = text.substr(0, visible);
    if (line.substr(found.end, visible) != text) return std::nullopt;
    found.end += visible;
    if (endsInBlank && found.end < line.size() && behindBlanks(line, found.end) == found.end) {
      return std::nullopt;
    }
    if (!isLast && !findNumber(piece, line, found)) return std::nullopt;
    // A macro at the label's end would take letters of a word.
    if (isLast && visible == 0 && isWordAt(line, found.end)) {
      return std::nullopt;
    }
  }
  return found;
}

}  // namespace kvrnstep::lines
