#pragma once

// The parameters of a call and the values of a list, each written down once, with its default. This
// header needs only the standard library and kvrnstep.h.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <tuple>
#include <utility>

#include "kvrnstep/kvrnstep.h"

namespace kvrnstep {

inline constexpr kvrnstep_dialog kDialogDefaults{
    .size = sizeof(kvrnstep_dialog),
    .l_EditorBColor = static_cast<std::int32_t>(0x80000005),
    .l_EditorFColor = static_cast<std::int32_t>(0x80000008),
    .i_EditorSize = 9,
    .bytSpcCount = 4,
};
inline constexpr kvrnstep_list kListDefaults{
    .size = sizeof(kvrnstep_list), .Start = 1, .Count = 3, .bytSpcCount = 4};
inline constexpr kvrnstep_lines kLinesDefaults{
    .size = sizeof(kvrnstep_lines), .start = -1, .step = 1, .bytSpcCount = 4};

enum class ParameterType : std::uint8_t { Text, Boolean, Integer, Long, Byte };

/// A parameter of a function of the component.
struct Parameter {
  std::u16string_view name;
  ParameterType type;
  bool optional = false;
};

/// Those of ShowListwrightDialog.
inline constexpr auto kCallParameters = std::to_array<Parameter>({
    {u"theLwOutputString", ParameterType::Text},
    {u"iBuildStep", ParameterType::Integer},
    {u"BuMenuMode", ParameterType::Boolean},
    {u"bolIsSoundAvailable", ParameterType::Boolean},
    {u"swavAlertQ", ParameterType::Text},
    {u"swavFinishQ", ParameterType::Text},
    {u"sPthStepFolder", ParameterType::Text},
    {u"SEC_APP_NAME", ParameterType::Text},
    {u"SEC_APP_LWDR", ParameterType::Text},
    {u"l_EditorBColor", ParameterType::Long, true},
    {u"l_EditorFColor", ParameterType::Long, true},
    {u"s_IniPathAndName", ParameterType::Text, true},
    {u"s_EditorFont", ParameterType::Text, true},
    {u"i_EditorSize", ParameterType::Integer, true},
    {u"bytSpcCount", ParameterType::Byte, true},
});

/// The fields that a record of the call's arguments and the host context share: the last ones of
/// the table.
template <class Record>
constexpr auto contextFields(Record& of) {
  return std::tie(of.bolIsSoundAvailable, of.swavAlertQ, of.swavFinishQ, of.sPthStepFolder,
                  of.SEC_APP_NAME, of.SEC_APP_LWDR, of.l_EditorBColor, of.l_EditorFColor,
                  of.s_IniPathAndName, of.s_EditorFont, of.i_EditorSize, of.bytSpcCount);
}

/// The fields of a record of the call's arguments: those of the table, without the first one, which
/// takes the list.
template <class Arguments>
constexpr auto callFields(Arguments& of) {
  return std::tuple_cat(std::tie(of.iBuildStep, of.BuMenuMode), contextFields(of));
}

/// The fields of a record that describes a list, but for its options.
template <class List>
constexpr auto listFields(List& of) {
  return std::tie(of.Selection, of.Prefix, of.Suffix, of.Start, of.Count, of.LineSpacing,
                  of.Beginning, of.Ending);
}

/// Calls `copy` with each field of one record and the same field of the other.
template <class... To, class... From, class Copy>
void copyFields(std::tuple<To&...> to, std::tuple<From&...> from, Copy&& copy) {
  static_assert(sizeof...(To) == sizeof...(From));
  const auto each = [&]<std::size_t... I>(std::index_sequence<I...> /*all*/) {
    (copy(std::get<I>(to), std::get<I>(from)), ...);
  };
  each(std::index_sequence_for<To...>());
}

}  // namespace kvrnstep
