#include "stepfiles/open_defaults.h"

#include <string_view>

#include "generator/list_settings.h"
#include "storage/settings_store.h"
#include "storage/text_file.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace kvrnstep::stepfiles {

namespace {

constexpr std::u16string_view kBeginningFile = u"begin_my_step.dat";
constexpr std::u16string_view kEndingFile = u"end_my_step.dat";

std::u16string read(const OpenDefaultsPlace& place, std::u16string_view key,
                    std::u16string_view fallback) {
  return modSecns::ReadIniKey(place.section, key, fallback, place.settingsFile);
}

void write(const OpenDefaultsPlace& place, std::u16string_view key, std::u16string_view value) {
  modSecns::WriteIniKey(place.section, key, value, place.settingsFile);
}

std::optional<std::int16_t> number(std::u16string_view value) {
  const auto number = text::wholeTextNumber(value);
  return number ? text::roundToInt16(*number) : std::nullopt;
}

std::u16string optionKey(std::size_t option) {
  return u"Option" + text::decimal(static_cast<std::int64_t>(option));
}

}  // namespace

OpenDefaults readOpenDefaults(const OpenDefaultsPlace& place) {
  OpenDefaults defaults;
  defaults.Selection = number(read(place, u"Selection", u"0"));
  for (std::size_t i = 0; i < defaults.Option.size(); ++i) {
    defaults.Option.at(i) =
        number(read(place, optionKey(i), i == generator::AppendOrdinal ? u"0" : u"1"));
  }
  defaults.Prefix = read(place, u"Prefix", u"");
  defaults.Suffix = read(place, u"Suffix", u"");
  defaults.Start = read(place, u"Start", u"1");
  defaults.Count = read(place, u"Count", u"3");
  defaults.LineSpacing = read(place, u"LineSpacing", u"0");
  defaults.Beginning = storage::ReadTextFile(text::inFolder(place.stepFolder, kBeginningFile));
  defaults.Ending = storage::ReadTextFile(text::inFolder(place.stepFolder, kEndingFile));
  return defaults;
}

void writeOpenDefaults(const OpenDefaultsPlace& place, const OpenDefaults& defaults) {
  if (defaults.Selection) write(place, u"Selection", text::decimal(*defaults.Selection));
  for (std::size_t i = 0; i < defaults.Option.size(); ++i) {
    if (const auto option = defaults.Option.at(i))
      write(place, optionKey(i), text::decimal(*option));
  }
  write(place, u"Prefix", defaults.Prefix);
  write(place, u"Suffix", defaults.Suffix);
  write(place, u"Start", defaults.Start);
  write(place, u"Count", defaults.Count);
  write(place, u"LineSpacing", defaults.LineSpacing);
  storage::WriteTextFile(text::inFolder(place.stepFolder, kBeginningFile), defaults.Beginning);
  storage::WriteTextFile(text::inFolder(place.stepFolder, kEndingFile), defaults.Ending);
}

bool openDefaultsOn(const OpenDefaultsPlace& place) {
  return read(place, u"UseDefault", u"0") != u"0";
}

void switchOpenDefaults(const OpenDefaultsPlace& place, bool on) {
  write(place, u"UseDefault", on ? u"1" : u"0");
}

}  // namespace kvrnstep::stepfiles
