#include "generator/generator.h"

#include <algorithm>
#include <array>
#include <utility>

#include "generator/numerals.h"
#include "text/letter_case.h"
#include "text/numbers.h"
#include "text/text.h"

namespace kvrnstep::generator {

namespace {

/// The width to which labels are filled up with blanks on their left. Aligned labels are as wide as
/// the widest label from step 1 on, even if the list starts later. If the list goes beyond step 99,
/// only numbers are aligned.
std::size_t labelWidth(const ListSettings& settings, Numeral numeral) {
  constexpr int kLastAligned = 99;
  std::size_t width = 1;
  if (!settings.on(RightAlign)) return width;
  if (settings.Selection != Numbered && settings.Count > kLastAligned) return 0;
  for (int step = 1; step <= std::min<int>(settings.Count, kLastAligned); ++step) {
    width = std::max(width, numeral(step).size());
  }
  return width;
}

void addLabel(std::u16string& list, const ListSettings& settings, Numeral numeral,
              std::size_t width, int step) {
  std::u16string label = numeral(step);
  const bool hasCase = settings.Selection != Numbered;
  if (hasCase && !settings.on(UpperCase)) {
    label = text::lowerCase(label);
  }
  list.append(width - std::min(width, label.size()), u' ');
  list += label;
  if (!hasCase && settings.on(AppendOrdinal)) list += OrdinalSuffix(step);
}

std::u16string prepared(std::u16string affix, bool addBlank) {
  if (addBlank && !affix.empty() && affix.back() != u' ') affix += u' ';
  return affix;
}

/// Adds a prefix or a suffix. Its macros are replaced in this order, because a letter that replaces
/// one macro may complete a later one.
void addAffix(std::u16string& list, std::u16string_view affix, int step) {
  static constexpr std::array<std::pair<std::u16string_view, Numeral>, 3> kMacros{
      {{u"{STEP_#}", text::decimal}, {u"{STEP_L}", ToStepLetters}, {u"{STEP_R}", ToRomanNumeral}}};
  std::u16string replaced;
  for (const auto& [macro, numeral] : kMacros) {
    if (affix.find(macro) == std::u16string_view::npos) continue;
    replaced = text::ReplaceText(affix, macro, numeral(step));
    affix = replaced;
  }
  list += affix;
}

}  // namespace

std::u16string BuildLineSpacing(std::u16string_view vSeparator, int iLines,
                                std::u16string_view sFill) {
  constexpr int kMostLines = 9;
  if (iLines < 0) return {};
  std::u16string spacing(vSeparator);
  for (int line = 0; line < std::min(iLines, kMostLines); ++line) {
    spacing += sFill;
    spacing += vSeparator;
  }
  return spacing;
}

std::optional<std::u16string> generateList(const ListSettings& settings, std::size_t indentBlanks) {
  const std::u16string indent(settings.on(Indentation) ? indentBlanks : 0, u' ');
  const bool fillSpacing = settings.on(IndentSpacing);
  const std::u16string spacing = BuildLineSpacing(u"\r\n", settings.LineSpacing,
                                                  fillSpacing ? std::u16string_view(indent) : u"");
  const bool addBlank = settings.on(PreSufSpace);
  const std::u16string prefix = prepared(settings.Prefix, addBlank);
  const std::u16string suffix = prepared(settings.Suffix, addBlank);
  const Numeral numeral = numeralOf(settings.Selection);
  const std::size_t width = numeral != nullptr ? labelWidth(settings, numeral) : 0;

  std::u16string list;
  if (settings.on(AddBegEnd)) list = settings.Beginning;
  for (int step = settings.Start; step <= settings.Count && list.size() <= KVRNSTEP_LONGEST_LIST;
       ++step) {
    list += indent;
    addAffix(list, prefix, step);
    if (numeral != nullptr) addLabel(list, settings, numeral, width, step);
    addAffix(list, suffix, step);
    if (step < settings.Count || fillSpacing) list += spacing;
  }
  if (settings.on(AddBegEnd)) list += settings.Ending;
  if (list.size() > KVRNSTEP_LONGEST_LIST) return std::nullopt;
  return list;
}

}  // namespace kvrnstep::generator
