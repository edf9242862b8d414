// The generator, against one that puts each line together from scratch.

#include "generator/generator.h"

#include <algorithm>
#include <array>

#include "fuzz.h"
#include "generator/line_layout.h"
#include "generator/numerals.h"

namespace {

using namespace kvrnstep;
using generator::ListSettings;

std::u16string plainLabel(std::int16_t selection, int step) {
  switch (selection) {
    case generator::Numbered:
      return generator::numberText(step);
    case generator::Alphabetical:
      return generator::ToStepLetters(step);
    case generator::RomanNumeral:
      return generator::ToRomanNumeral(step);
    default:
      return {};
  }
}

/// As wide as the widest label from the first possible step on, wherever the list starts.
std::size_t obviousWidth(const ListSettings& settings) {
  std::size_t width = 1;
  if (!settings.on(generator::RightAlign)) return width;
  for (int step = 1; step <= settings.Count; ++step) {
    width = std::max(width, plainLabel(settings.Selection, step).size());
  }
  return width;
}

std::u16string obviousLabel(const ListSettings& settings, int step, std::size_t width) {
  if (settings.Selection < 0 || settings.Selection >= generator::PrefixSuffix) return {};
  std::u16string label = plainLabel(settings.Selection, step);
  const bool lowerCase =
      settings.Selection != generator::Numbered && !settings.on(generator::UpperCase);
  for (char16_t& c : label) {
    if (lowerCase && c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c + 32);
  }
  if (label.size() < width) label.insert(0, width - label.size(), u' ');
  const bool ordinal =
      settings.Selection == generator::Numbered && settings.on(generator::AppendOrdinal);
  return ordinal ? label + generator::OrdinalSuffix(step) : label;
}

std::u16string obviousAffix(const ListSettings& settings, std::u16string text, int step) {
  const bool wantsBlank = settings.on(generator::PreSufSpace) && !text.empty();
  if (wantsBlank && text.back() != u' ') text += u' ';
  return generator::withMacros(text, step);
}

std::u16string obviousList(const ListSettings& settings, std::size_t indentBlanks) {
  const std::u16string indent(settings.on(generator::Indentation) ? indentBlanks : 0, u' ');
  const bool filled = settings.on(generator::IndentSpacing);
  std::u16string spacing;
  if (settings.LineSpacing >= 0) spacing = u"\r\n";
  for (int line = 0; line < std::min<int>(settings.LineSpacing, 9); ++line) {
    spacing += (filled ? indent : std::u16string()) + u"\r\n";
  }
  std::u16string list;
  const std::size_t width = obviousWidth(settings);
  for (int step = settings.Start; step <= settings.Count; ++step) {
    list += indent + obviousAffix(settings, settings.Prefix, step);
    list += obviousLabel(settings, step, width);
    list += obviousAffix(settings, settings.Suffix, step);
    if (step < settings.Count || filled) list += spacing;
  }
  if (!settings.on(generator::AddBegEnd)) return list;
  return settings.Beginning + list + settings.Ending;
}

/// A text in which macros are likely, and macros with another one in place of some characters.
std::u16string affix(FuzzedDataProvider& input) {
  static constexpr std::array<std::u16string_view, 3> kMacros{u"{STEP_#}", u"{STEP_L}",
                                                              u"{STEP_R}"};
  if (input.ConsumeBool()) return fuzz::anyText(input, 64);
  std::u16string text;
  for (int parts = input.ConsumeIntegralInRange(0, 4); parts > 0; --parts) {
    const std::u16string_view macro = input.PickValueInArray(kMacros);
    const auto at = input.ConsumeIntegralInRange<std::size_t>(0, macro.size());
    const auto lost = input.ConsumeIntegralInRange<std::size_t>(0, macro.size() - at);
    text += macro.substr(0, at);
    if (input.ConsumeBool()) text += input.PickValueInArray(kMacros);
    text += macro.substr(at + lost);
  }
  return text;
}

/// A list of up to 400 lines, mostly of those that the dialog can make; far more would only be
/// slow.
ListSettings anyList(FuzzedDataProvider& input) {
  ListSettings settings = fuzz::anySettings(input, 32);
  settings.Prefix = affix(input);
  settings.Suffix = affix(input);
  constexpr int kMostLines = 400;
  if (settings.Count - settings.Start >= kMostLines) {
    settings.Start = static_cast<std::int16_t>(settings.Count - kMostLines + 1);
  }
  return settings;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider input(data, size);
  const ListSettings settings = anyList(input);
  const std::size_t indent = input.ConsumeIntegral<std::uint8_t>();
  const std::u16string list = generator::generateList(settings, indent);
  // Labels of more than 99 steps are not lined up.
  const bool ordinary =
      !settings.on(generator::RightAlign) || (settings.Count > 0 && settings.Count <= 99);
  if (ordinary) fuzz::check(list == obviousList(settings, indent), "lines are put together so");

  if (settings.Start > settings.Count) {
    const std::size_t around = settings.Beginning.size() + settings.Ending.size();
    fuzz::check(list.size() == (settings.on(generator::AddBegEnd) ? around : 0),
                "no step, no line");
  }
  return 0;
}
