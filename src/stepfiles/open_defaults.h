#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace kvrnstep::stepfiles {

/// The stored setup that presets the dialog. Numbers are kept as they were typed; what is stored
/// and is no number is nothing, and then the dialog keeps what it shows.
struct OpenDefaults {
  std::optional<std::int16_t> Selection;
  std::array<std::optional<std::int16_t>, 7> Option;
  std::u16string Prefix;
  std::u16string Suffix;
  std::u16string Start;
  std::u16string Count;
  std::u16string LineSpacing;
  std::u16string Beginning;
  std::u16string Ending;
};

/// Where open defaults are kept: keys of one section of the settings file, and two text files in
/// the step folder.
struct OpenDefaultsPlace {
  std::u16string section;
  std::u16string settingsFile;
  std::u16string stepFolder;
};

/// What is missing comes as the dialog is designed.
OpenDefaults readOpenDefaults(const OpenDefaultsPlace& place);

/// Nothing is written of a listing type or an option that is nothing.
void writeOpenDefaults(const OpenDefaultsPlace& place, const OpenDefaults& defaults);

/// The key "UseDefault": on unless it is exactly "0".
bool openDefaultsOn(const OpenDefaultsPlace& place);
void switchOpenDefaults(const OpenDefaultsPlace& place, bool on);

}  // namespace kvrnstep::stepfiles
