#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "kvrnstep/list_options.hpp"

namespace kvrnstep::stepfiles {

/// A box of the dialog, which is stored as it was typed.
struct TypedDefault {
  std::u16string_view key;     ///< in the settings file; empty: it has a file of its own
  std::u16string_view design;  ///< what the box shows where nothing is stored
  std::u16string_view file;    ///< in the step folder
};
inline constexpr auto kTypedDefaults = std::to_array<TypedDefault>({
    {u"Prefix", u"", {}},
    {u"Suffix", u"", {}},
    {u"Start", u"1", {}},
    {u"Count", u"3", {}},
    {u"LineSpacing", u"0", {}},
    {{}, u"", u"begin_my_step.dat"},
    {{}, u"", u"end_my_step.dat"},
});

/// The stored setup that presets the dialog. A field is empty if its stored value is not a number;
/// the dialog then keeps what it shows.
struct OpenDefaults {
  std::optional<std::int16_t> Selection;
  std::array<std::optional<std::int16_t>, kListOptionCount> Option;
  std::array<std::u16string, kTypedDefaults.size()> typed;  ///< in the order of the table
};

/// Where open defaults are kept: keys of one section of the settings file, and two text files in
/// the step folder.
struct OpenDefaultsPlace {
  std::u16string section;
  std::u16string settingsFile;
  std::u16string stepFolder;
};

/// Values that are not stored are those of the dialog's design.
OpenDefaults readOpenDefaults(const OpenDefaultsPlace& place);

/// Stores them and switches them on. Empty fields are not written.
void writeOpenDefaults(const OpenDefaultsPlace& place, const OpenDefaults& defaults);

/// The key "UseDefault": on unless it is exactly "0".
bool openDefaultsOn(const OpenDefaultsPlace& place);
void switchOpenDefaults(const OpenDefaultsPlace& place, bool on);

}  // namespace kvrnstep::stepfiles
