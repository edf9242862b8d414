#include "stepfiles/open_defaults.h"

#include <string_view>

#include "storage/settings_store.h"
#include "storage/text_file.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace kvrnstep::stepfiles {

namespace {

constexpr std::u16string_view kSwitch = u"UseDefault";

std::u16string read(const OpenDefaultsPlace& place, std::u16string_view key,
                    std::u16string_view fallback) {
  return modSecns::ReadIniKey(place.section, key, fallback, place.settingsFile);
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
  for (std::size_t i = 0; i < kListOptions.size(); ++i) {
    defaults.Option.at(i) =
        number(read(place, optionKey(i), kListOptions.at(i).checkedAtFirst ? u"1" : u"0"));
  }
  for (std::size_t i = 0; i < kTypedDefaults.size(); ++i) {
    const TypedDefault& row = kTypedDefaults.at(i);
    defaults.typed.at(i) = row.file.empty()
                               ? read(place, row.key, row.design)
                               : storage::ReadTextFile(text::inFolder(place.stepFolder, row.file));
  }
  return defaults;
}

void writeOpenDefaults(const OpenDefaultsPlace& place, const OpenDefaults& defaults) {
  modSecns::IniKeys keys;
  if (defaults.Selection) keys.emplace_back(u"Selection", text::decimal(*defaults.Selection));
  for (std::size_t i = 0; i < defaults.Option.size(); ++i) {
    if (const auto option = defaults.Option.at(i)) {
      keys.emplace_back(optionKey(i), text::decimal(*option));
    }
  }
  for (std::size_t i = 0; i < kTypedDefaults.size(); ++i) {
    const TypedDefault& row = kTypedDefaults.at(i);
    const std::u16string& typed = defaults.typed.at(i);
    if (row.file.empty()) {
      keys.emplace_back(row.key, typed);
    } else {
      storage::WriteTextFile(text::inFolder(place.stepFolder, row.file), typed);
    }
  }
  keys.emplace_back(kSwitch, u"1");
  modSecns::WriteIniKeys(place.section, keys, place.settingsFile);
}

bool openDefaultsOn(const OpenDefaultsPlace& place) {
  return read(place, kSwitch, u"0") != u"0";
}

void switchOpenDefaults(const OpenDefaultsPlace& place, bool on) {
  modSecns::WriteIniKey(place.section, kSwitch, on ? u"1" : u"0", place.settingsFile);
}

}  // namespace kvrnstep::stepfiles
