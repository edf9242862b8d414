#include "stepfiles/step_file_name.h"

#include <algorithm>

#include "stepfiles/step_record.h"
#include "text/characters.h"
#include "text/codepage.h"
#include "text/numbers.h"
#include "text/text.h"

namespace kvrnstep::stepfiles {

using generator::ListSettings;

namespace {

constexpr std::u16string_view kRemoved = u"\"?`!.'<>;:\\/\r\n";

std::u16string_view typeName(std::int16_t selection) {
  const auto index = static_cast<std::size_t>(selection);
  return index < kListingTypes.size() ? kListingTypes.at(index).fileName : std::u16string_view();
}

bool endsInPair(std::u16string_view text) {
  return text.size() > 1 && text::isSurrogatePair(text.substr(text.size() - 2));
}

void appendOptions(std::u16string& name, const ListSettings& settings) {
  for (std::size_t turn = 0; turn < kListOptions.size(); ++turn) {
    const auto* row = std::ranges::find(kListOptions, turn, &ListOptionRow::turn);
    if (!appliesTo(*row, settings.Selection)) continue;
    name +=
        settings.Option.at(static_cast<std::size_t>(row - kListOptions.begin())) == 1 ? u'+' : u'-';
    name += row->code;
  }
}

}  // namespace

std::u16string BuildStepFileName(const ListSettings& settings) {
  std::u16string name(typeName(settings.Selection));
  for (const std::u16string* text :
       {&settings.Beginning, &settings.Prefix, &settings.Suffix, &settings.Ending}) {
    name += *text + u'_';
  }
  name += text::decimal(settings.LineSpacing) + u'_';
  if (settings.Selection != generator::PrefixSuffix) {
    name += text::decimal(settings.Start) + u'_' + text::decimal(settings.Count);
  }
  appendOptions(name, settings);
  name = CollapseRepeats(RemoveChars(std::move(name), kRemoved, u""), u'_');
  // After the runs have shrunk: a blank beside an underscore becomes a second underscore.
  std::ranges::replace(name, u' ', u'_');
  return name;
}

std::u16string fittingFileName(std::u16string name) {
  constexpr std::size_t kLongestName = 255;  // bytes of UTF-8, or less, on every system
  const std::size_t room = kLongestName - kStepExtension.size();
  // First what cannot fit in any case, because a text may be very long. If that cuts a pair, its
  // first half is the next to go, since it takes three bytes alone.
  name.resize(std::min(name.size(), room));
  while (text::toUtf8(name).size() > room) {
    name.resize(name.size() - (endsInPair(name) ? 2 : 1));
  }
  return name;
}

std::u16string RemoveChars(std::u16string text, std::u16string_view chars,
                           std::u16string_view with) {
  for (const char16_t& ch : chars) text = text::ReplaceText(text, {&ch, 1}, with);
  return text;
}

std::u16string CollapseRepeats(std::u16string text, char16_t ch) {
  std::ranges::replace(text, u'\t', u' ');
  const auto isRepeat = [ch](char16_t a, char16_t b) { return a == ch && b == ch; };
  text.erase(std::unique(text.begin(), text.end(), isRepeat), text.end());
  return text;
}

}  // namespace kvrnstep::stepfiles
