#include "lines/line_label.h"

#include <algorithm>
#include <array>
#include <utility>

#include "lines/lines.h"
#include "lines/text_lines.h"
#include "text/codepage.h"

namespace kvrnstep::lines {

namespace {

constexpr std::array<std::pair<std::string_view, ListingType>, 3> kMacros{
    {{"{STEP_#}", Numbered}, {"{STEP_L}", Alphabetical}, {"{STEP_R}", RomanNumeral}}};

LabelStyle labelStyle(const generator::ListSettings& settings, std::size_t digits) {
  const auto type =
      isListingType(settings.Selection) ? static_cast<ListingType>(settings.Selection) : Numbered;
  if (type != Numbered) return {.type = type, .upperCase = settings.on(UpperCase)};
  return {.ordinal = settings.on(AppendOrdinal), .digits = digits};
}

bool isWordAt(std::string_view text, std::size_t place) {
  constexpr std::string_view kWord =
      "0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  return place < text.size() && kWord.find(text[place]) != std::string_view::npos;
}

}  // namespace

LineLabel::LineLabel(const generator::ListSettings& settings, std::size_t digits) {
  const bool hasLabel = settings.Selection != generator::PrefixSuffix;
  const bool addBlank = settings.on(generator::PreSufSpace);
  addAffix(text::toUtf8(settings.Prefix), addBlank);
  if (hasLabel) {
    pieces_.back().style = labelStyle(settings, digits);
    pieces_.back().isLabel = true;
    pieces_.emplace_back();
  }
  addAffix(hasLabel && settings.Suffix.empty() ? ". " : text::toUtf8(settings.Suffix), addBlank);
  rightAligned_ = hasLabel && settings.on(generator::RightAlign);
  std::string& first = pieces_.front().text;
  leadingBlanks_ = first.substr(0, behindBlanks(first, 0));
  first.erase(0, leadingBlanks_.size());
  std::string& last = pieces_.back().text;
  const std::size_t visible = last.find_last_not_of(" \t") + 1;
  trailingBlanks_ = last.substr(visible);
  last.erase(visible);
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
      pieces_.back().style = {.type = macro->second, .upperCase = true};
      pieces_.emplace_back();
      rest.remove_prefix(macro->first.size());
    }
  }
}

bool LineLabel::exists(std::int64_t number) const {
  return std::all_of(pieces_.begin(), pieces_.end() - 1,
                     [&](const Piece& piece) { return labelExists(piece.style.type, number); });
}

void LineLabel::require(std::int64_t number, std::size_t line) const {
  for (std::size_t i = 0; i + 1 < pieces_.size(); ++i) {
    const ListingType type = pieces_[i].style.type;
    if (!labelExists(type, number)) throw NoLabel(whyNoLabel(type, number, line));
  }
}

void LineLabel::append(std::string& text, std::int64_t number, std::size_t width) const {
  text += leadingBlanks_;
  appendVisible(text, number, width);
  text += trailingBlanks_;
}

void LineLabel::appendVisible(std::string& text, std::int64_t number, std::size_t width) const {
  for (const Piece& piece : pieces_) {
    text += piece.text;
    if (&piece == &pieces_.back()) return;
    if (piece.isLabel && width > 1) {
      text.append(width - std::min(width, labelWidth(piece.style, number)), ' ');
    }
    appendLabel(text, piece.style, number);
  }
}

const LabelStyle& LineLabel::style() const {
  return std::ranges::find_if(pieces_, &Piece::isLabel)->style;
}

bool LineLabel::findNumber(const Piece& piece, std::string_view line, Item& item) const {
  const std::size_t field = item.end;
  const std::size_t label = piece.isLabel && rightAligned_ ? behindBlanks(line, field) : field;
  std::int64_t number = -1;
  const std::size_t length = findLabel(piece.style, line.substr(label), number);
  if (length == 0) return false;
  item.end = label + length;
  // What a macro stands for counts where there is no label.
  if (!piece.isLabel && item.readings.plain >= 0) return true;
  item.label = line.substr(label, length - (piece.style.ordinal && number > 0 ? 2 : 0));
  item.readings.plain = number;
  item.width = label - field + item.label.size();
  return true;
}

bool LineLabel::find(std::string_view line, Item& item) const {
  item = {.kind = LabelKind::Described};
  for (const Piece& piece : pieces_) {
    const bool isLast = &piece == &pieces_.back();
    if (!line.substr(item.end).starts_with(piece.text)) return false;
    item.end += piece.text.size();
    if (!isLast && !findNumber(piece, line, item)) return false;
  }
  const bool blankFollows = item.end == line.size() || behindBlanks(line, item.end) > item.end;
  // A macro at the label's end would take letters of a word.
  const bool needsNoWord = pieces_.back().text.empty();
  return (trailingBlanks_.empty() || blankFollows) && !(needsNoWord && isWordAt(line, item.end));
}

}  // namespace kvrnstep::lines
