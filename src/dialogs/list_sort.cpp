#include "dialogs/list_sort.h"

#include <algorithm>
#include <utility>

namespace kvrnstep::dialogs {

void QuickSortStrings(std::vector<std::u16string>& sItems, std::int32_t lMin, std::int32_t lMax) {
  if (lMin < lMax) std::sort(sItems.begin() + lMin, sItems.begin() + lMax + 1);
}

void SortList(forms::ListBox& lstSort) {
  std::vector<std::u16string> items = lstSort.entries().items;
  QuickSortStrings(items, 0, static_cast<std::int32_t>(items.size()) - 1);
  lstSort.Clear();
  for (std::u16string& item : items) lstSort.AddItem(std::move(item));
}

}  // namespace kvrnstep::dialogs
