#include "obvious_list.h"

#include <algorithm>
#include <array>
#include <utility>

#include "generator/numerals.h"

namespace kvrnstep::judges {

namespace {

using generator::ListSettings;

bool isOrdinary(int number) {
  return number >= 0 && number <= 99;
}

std::u16string digits(int number) {
  const std::string text = std::to_string(number);
  return {text.begin(), text.end()};
}

std::u16string letters(int number) {
  if (!isOrdinary(number)) return generator::ToStepLetters(number);
  const int repeats = number <= 26 ? 1 : number <= 52 ? 2 : number <= 78 ? 3 : 4;
  const int letter = 64 + number - 26 * (repeats - 1);
  return std::u16string(static_cast<std::size_t>(repeats), static_cast<char16_t>(letter));
}

std::u16string roman(int number) {
  if (!isOrdinary(number)) return generator::ToRomanNumeral(number);
  constexpr auto kSymbols = std::to_array<std::pair<int, std::u16string_view>>({{90, u"XC"},
                                                                                {50, u"L"},
                                                                                {40, u"XL"},
                                                                                {10, u"X"},
                                                                                {9, u"IX"},
                                                                                {5, u"V"},
                                                                                {4, u"IV"},
                                                                                {1, u"I"}});
  std::u16string text;
  for (const auto& [value, symbol] : kSymbols) {
    for (; number >= value; number -= value) text += symbol;
  }
  return text;
}

std::u16string ordinal(int number) {
  if (!isOrdinary(number)) return generator::OrdinalSuffix(number);
  if (number == 0) return u"";
  if (number / 10 == 1) return u"th";  // 11 to 13, and the others there end in "th" anyway
  const int last = number % 10;
  return last == 1 ? u"st" : last == 2 ? u"nd" : last == 3 ? u"rd" : u"th";
}

std::u16string replaced(std::u16string text, std::u16string_view find, const std::u16string& with) {
  std::size_t at = 0;
  while ((at = text.find(find, at)) != std::u16string::npos) {
    text.replace(at, find.size(), with);
    at += with.size();
  }
  return text;
}

std::u16string affix(const ListSettings& settings, std::u16string text, int step) {
  if (settings.Option[5] == 1 && !text.empty() && text.back() != u' ') text += u' ';
  text = replaced(std::move(text), u"{STEP_#}", digits(step));
  text = replaced(std::move(text), u"{STEP_L}", letters(step));
  return replaced(std::move(text), u"{STEP_R}", roman(step));
}

/// Of all letters that labels can have.
char16_t smallLetter(char16_t c) {
  constexpr std::u16string_view kCapitals = u"\u0152\u0160\u017D\u0178";
  constexpr std::u16string_view kSmall = u"\u0153\u0161\u017E\u00FF";
  const auto at = kCapitals.find(c);
  if (at != std::u16string_view::npos) return kSmall[at];
  const bool latin = c >= 0xC0 && c <= 0xDE && c != 0xD7;
  return (c >= u'A' && c <= u'Z') || latin ? static_cast<char16_t>(c + 32) : c;
}

std::u16string bareLabel(const ListSettings& settings, int step) {
  switch (settings.Selection) {
    case 0:
      return step == 0 ? u"" : digits(step);
    case 1:
      return letters(step);
    default:
      return roman(step);
  }
}

/// As wide as the widest label from the first possible step on, wherever the list starts; one place
/// is always kept.
std::size_t labelWidth(const ListSettings& settings) {
  std::size_t width = 1;
  if (settings.Option[4] != 1) return width;
  for (int step = 1; step <= settings.Count; ++step) {
    width = std::max(width, bareLabel(settings, step).size());
  }
  return width;
}

std::u16string label(const ListSettings& settings, int step, std::size_t width) {
  if (settings.Selection < 0 || settings.Selection > 2) return u"";
  std::u16string text = bareLabel(settings, step);
  if (text.size() < width) text.insert(0, width - text.size(), u' ');
  if (settings.Selection == 0) {
    if (settings.Option[6] == 1) text += ordinal(step);
    return text;
  }
  if (settings.Option[1] != 1) std::ranges::transform(text, text.begin(), smallLetter);
  return text;
}

std::u16string blankLines(const ListSettings& settings, const std::u16string& indent) {
  if (settings.LineSpacing < 0) return u"";
  std::u16string text = u"\r\n";
  for (int line = 0; line < std::min<int>(settings.LineSpacing, 9); ++line) {
    text += (settings.Option[0] == 1 ? indent : u"") + u"\r\n";
  }
  return text;
}

}  // namespace

std::u16string obviousList(const ListSettings& settings, std::size_t indentBlanks) {
  const std::u16string indent(settings.Option[2] == 1 ? indentBlanks : 0, u' ');
  const std::u16string between = blankLines(settings, indent);
  const std::size_t width = labelWidth(settings);
  std::u16string list;
  for (int step = settings.Start; step <= settings.Count; ++step) {
    list += indent + affix(settings, settings.Prefix, step) + label(settings, step, width) +
            affix(settings, settings.Suffix, step);
    if (step < settings.Count || settings.Option[0] == 1) list += between;
  }
  return settings.Option[3] == 1 ? settings.Beginning + list + settings.Ending : list;
}

}  // namespace kvrnstep::judges
