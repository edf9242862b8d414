#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "forms/control.h"

/// Sorting by UTF-16 code units. Letter case matters and languages do not. A text comes before
/// longer texts that begin with it.
namespace kvrnstep::dialogs {

/// Sorts the entries of a list box in place; afterwards none is selected. The box shows the old
/// order until the new one is complete.
void SortList(forms::ListBox& lstSort);

/// Sorts the items from index `lMin` to index `lMax`, both included, and leaves the others alone.
void QuickSortStrings(std::vector<std::u16string>& sItems, std::int32_t lMin, std::int32_t lMax);

}  // namespace kvrnstep::dialogs
