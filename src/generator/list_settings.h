#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "kvrnstep/list_options.hpp"

namespace kvrnstep::generator {

using enum ListingType;
using enum ListOption;

/// One description of a step list: what the dialog shows, files store, and the generator writes
/// out as text.
struct ListSettings {
  std::int16_t Selection = Numbered;
  std::array<std::int16_t, kListOptionCount> Option{};  ///< 1 is on, anything else off
  std::u16string Prefix;                                ///< may hold macros
  std::u16string Suffix;                                ///< may hold macros
  std::int16_t Start = 1;                               ///< number of the first step
  std::int16_t Count = 3;                               ///< number of the last step; 0: not given
  std::int16_t LineSpacing = 0;                         ///< blank lines between two steps
  std::u16string Beginning;
  std::u16string Ending;

  [[nodiscard]] bool on(ListOption option) const { return Option.at(option) == 1; }

  bool operator==(const ListSettings&) const = default;
};

}  // namespace kvrnstep::generator
