#include "stepfiles/step_file_name.h"

#include <algorithm>
#include <array>
#include <span>

#include "stepfiles/step_record.h"
#include "text/characters.h"
#include "text/codepage.h"
#include "text/numbers.h"
#include "text/text.h"

namespace kvrnstep::stepfiles {

using generator::ListSettings;

namespace {

constexpr std::u16string_view kRemoved = u"\"?`!.'<>;:\\/\r\n";

/// What is removed or shrinks in each text, as in the whole name.
std::u16string cleaned(std::u16string text) {
  return CollapseRepeats(RemoveChars(std::move(text), kRemoved, u""), u'_');
}

/// As many characters of the text as `room` bytes of UTF-8 hold.
std::u16string_view fitting(std::u16string_view text, std::size_t room) {
  std::u16string_view rest = text;
  std::size_t length = 0;
  while (!rest.empty()) {
    const auto character = text::takeCharacter(rest);
    const std::size_t bytes = text::toUtf8(character).size();
    if (bytes > room) break;
    room -= bytes;
    length += character.size();
  }
  return text.substr(0, length);
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

/// The name with `room` bytes of UTF-8 for each of its texts.
std::u16string nameOf(const ListSettings& settings, std::span<const std::u16string> texts,
                      std::size_t room) {
  std::u16string name;
  if (isListingType(settings.Selection)) {
    name = kListingTypes.at(static_cast<std::size_t>(settings.Selection)).fileName;
  }
  for (const std::u16string& text : texts) {
    name += fitting(text, room);
    name += u'_';
  }
  name += text::decimal(settings.LineSpacing) + u'_';
  if (settings.Selection != generator::PrefixSuffix) {
    name += text::decimal(settings.Start) + u'_' + text::decimal(settings.Count);
  }
  appendOptions(name, settings);
  name = CollapseRepeats(std::move(name), u'_');
  // After the runs have shrunk: a blank beside an underscore becomes a second underscore.
  std::ranges::replace(name, u' ', u'_');
  return name;
}

}  // namespace

std::u16string BuildStepFileName(const ListSettings& settings) {
  constexpr std::size_t kLongestName = 255;  // bytes of UTF-8, or less, on every system
  const std::size_t most = kLongestName - kStepExtension.size();
  const std::array texts{cleaned(settings.Beginning), cleaned(settings.Prefix),
                         cleaned(settings.Suffix), cleaned(settings.Ending)};
  std::size_t room = most;
  std::u16string name = nameOf(settings, texts, room);
  while (text::toUtf8(name).size() > most) name = nameOf(settings, texts, --room);
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
