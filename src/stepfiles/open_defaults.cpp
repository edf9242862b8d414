#include "stepfiles/open_defaults.h"

#include <string_view>

#include "storage/settings_store.h"
#include "storage/text_file.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace kvrnstep::stepfiles {

namespace {

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
  if (defaults.Selection) write(place, u"Selection", text::decimal(*defaults.Selection));
  for (std::size_t i = 0; i < defaults.Option.size(); ++i) {
    if (const auto option = defaults.Option.at(i))
      write(place, optionKey(i), text::decimal(*option));
  }
  for (std::size_t i = 0; i < kTypedDefaults.size(); ++i) {
    const TypedDefault& row = kTypedDefaults.at(i);
    const std::u16string& typed = defaults.typed.at(i);
    if (row.file.empty()) {
      write(place, row.key, typed);
    } else {
      storage::WriteTextFile(text::inFolder(place.stepFolder, row.file), typed);
    }
  }
}

bool openDefaultsOn(const OpenDefaultsPlace& place) {
  return read(place, u"UseDefault", u"0") != u"0";
}

void switchOpenDefaults(const OpenDefaultsPlace& place, bool on) {
  write(place, u"UseDefault", on ? u"1" : u"0");
}

}  // namespace kvrnstep::stepfiles
