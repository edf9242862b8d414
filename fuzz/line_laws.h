#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "lines/lines.h"

/// What must hold of every text whose lines are numbered, and texts to try it on. `Pick` gives a
/// number below the one that it is called with.
namespace kvrnstep::judges {

template <class Pick, std::size_t Size>
std::string_view oneOf(const Pick& pick, const std::array<std::string_view, Size>& pieces) {
  return pieces.at(pick(Size));
}

/// Lists, paragraphs, code and bytes of any kind, with indentations, labels and line ends mixed.
template <class Pick>
std::string anyLines(const Pick& pick) {
  static constexpr std::array<std::string_view, 10> kIndents{"",    "",     "",   " ",   "  ",
                                                             "   ", "    ", "\t", " \t", "\t "};
  static constexpr std::array<std::string_view, 36> kLabels{
      "1", "2",  "9",   "10", "11", "99", "100", "8",  "0",   "01",   "1",  "2",
      "i", "ii", "iii", "iv", "v",  "ix", "x",   "xi", "vii", "viii", "i",  "ii",
      "a", "b",  "c",   "h",  "j",  "e",  "z",   "aa", "bb",  "I",    "II", "IV"};
  static constexpr std::array<std::string_view, 6> kEnds{". ", ") ", ": ", ".\t", ".", ".  "};
  static constexpr std::array<std::string_view, 18> kContents{
      "x",   "text", "[ ] x",        "- x",
      "# x", "```",  "```sh",        "~~~",
      "1.",  "\xff", "\xef\xbb\xbf", std::string_view("\0y", 2),
      "\f",  "\rz",  "Step 1) x",    "g. y",
      "x",   ""};
  std::string text;
  // Labels of one kind make longer lists.
  const std::size_t kind = pick(4) * 12;
  for (std::size_t count = pick(20) + 1; count > 0; --count) {
    const std::size_t filled = pick(8);
    if (filled > 0) text += oneOf(pick, kIndents);
    if (filled > 2) {
      text += kLabels.at(kind < 36 && pick(4) > 0 ? kind + pick(12) : pick(36));
      text += pick(4) > 0 ? ". " : oneOf(pick, kEnds);
    }
    if (filled > 1) text += pick(3) > 0 ? "x" : oneOf(pick, kContents);
    if (count > 1 || pick(2) == 0) text += pick(4) > 0 ? "\n" : "\r\n";
  }
  return text;
}

template <class Pick>
lines::LineOptions anyLineOptions(const Pick& pick) {
  lines::LineOptions options;
  if (pick(2) == 0) return options;
  options.start = std::array{1, 0, 2, 5, 9, 10, 99, 3998}.at(pick(8));
  options.step = std::array{1, 1, 2, 10, -1}.at(pick(5));
  options.digits = pick(4) == 0 ? pick(4) : 0;
  options.keepStart = pick(4) == 0;
  if (pick(2) == 0) return options;
  static constexpr std::array<std::u16string_view, 10> kAffixes{
      u"",   u"", u".", u") ", u"Step ", u"  ", u"{STEP_R}", u"({STEP_#}", u" {STEP_L}{STEP_L}",
      u"é\t"};
  auto& list = options.list.emplace();
  list.Selection = static_cast<std::int16_t>(pick(4));
  for (std::int16_t& option : list.Option) option = pick(3) == 0 ? 1 : 0;
  list.Prefix = kAffixes.at(pick(kAffixes.size()));
  list.Suffix = kAffixes.at(pick(kAffixes.size()));
  list.LineSpacing = static_cast<std::int16_t>(pick(4) == 0 ? pick(3) : 0);
  list.Beginning = pick(2) == 0 ? u"Begin\n\n" : u"1. ";
  list.Ending = pick(2) == 0 ? u"\r\nEnd" : u"";
  options.indentBlanks = pick(4);
  return options;
}

/// The text with its labels changed; nothing where one of them does not exist.
inline std::optional<std::string> changed(decltype(lines::number)& change, std::string_view text,
                                          const lines::LineOptions& options) {
  std::string result;
  try {
    change(text, options, [&](std::string_view block) { result += block; });
  } catch (const lines::NoLabel&) {
    if (result.empty()) return std::nullopt;
    result += "something was written all the same";
  }
  return result;
}

/// The text without what `renumber` may change: blanks and a label at the beginning of each line.
inline std::string withoutLabels(std::string_view text) {
  std::string rest;
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  while (!text.empty()) {
    std::string_view line = text.substr(0, std::min(text.find('\n'), text.size() - 1) + 1);
    text.remove_prefix(line.size());
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    const std::size_t label =
        line.find_first_not_of("0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ");
    const bool isLabel = label < line.size() && std::string_view(".):").find(line[label]) < 3;
    rest += line.substr(isLabel ? label : 0);
  }
  return rest;
}

/// The law that the text breaks; empty where all hold.
inline std::string_view brokenLaw(const std::string& text, const lines::LineOptions& options) {
  const auto numbered = changed(lines::number, text, options);
  // An ending behind a lone CR could begin with the second half of a line end.
  if (numbered && !text.ends_with('\r') && changed(lines::unnumber, *numbered, options) != text) {
    return "unnumber undoes number";
  }
  const auto renumbered = changed(lines::renumber, text, options);
  if (!renumbered) return "";
  if (changed(lines::renumber, *renumbered, options) != renumbered) return "twice is once";
  if (options.list) return "";
  return withoutLabels(text) == withoutLabels(*renumbered) ? "" : "labels change alone";
}

}  // namespace kvrnstep::judges
