#include "dialogs/list_sort.h"

#include <cstddef>
#include <random>
#include <utility>

#include "text/characters.h"

namespace kvrnstep::dialogs {

namespace {

using Item = std::u16string;
/// A place among the items: they are moved about by assignment, out of one place and into another.
using Place = Item*;

bool comesBefore(const Item& one, const Item& other) {
  const std::size_t alike = text::lengthInCommon(one, other);
  if (alike == other.size()) return false;
  return alike == one.size() || one[alike] < other[alike];
}

// An item that has been moved out is a hole; its place is written before it is read again.
// NOLINTBEGIN(clang-analyzer-cplusplus.Move)

/// Ranges of this length and below are sorted faster by insertion.
constexpr std::ptrdiff_t kShort = 24;

void insertionSort(Place first, Place last) {
  for (Place next = first + 1; next <= last; ++next) {
    if (!comesBefore(*next, next[-1])) continue;
    Item item = std::move(*next);
    Place hole = next;
    do {
      *hole = std::move(hole[-1]);
      --hole;
    } while (hole > first && comesBefore(item, hole[-1]));
    *hole = std::move(item);
  }
}

/// Divides a range whose first place is a hole: what `goesRight` goes to the right of `value`, the
/// rest to its left.
/// @return where `value` has come to stand
template <class GoesRight>
Place divide(Place first, Place last, Item value, GoesRight goesRight) {
  Place low = first;
  Place high = last;
  while (true) {
    while (high > low && goesRight(*high, value)) --high;
    if (high <= low) break;
    *low++ = std::move(*high);
    while (low < high && !goesRight(*low, value)) ++low;
    if (low >= high) break;
    *high-- = std::move(*low);
  }
  *low = std::move(value);
  return low;
}

class QuickSort {
 public:
  /// @param floor an item that no item of the range is smaller than, or null
  void sort(Place first, Place last, const Item* floor) {
    while (last - first >= kShort) {
      Item pivot = takePivot(first, last);
      if (floor != nullptr && pivot == *floor) {
        // What equals the floor, and so stands where it belongs, is not sorted again.
        first = 1 + divide(first, last, std::move(pivot), [](const Item& item, const Item& value) {
                  return comesBefore(value, item);
                });
        continue;
      }
      Place middle = divide(first, last, std::move(pivot), [](const Item& item, const Item& value) {
        return !comesBefore(item, value);
      });
      // The smaller part takes the stack, so that it stays low.
      if (middle - first < last - middle) {
        sort(first, middle - 1, floor);
        first = middle + 1;
        floor = middle;
      } else {
        sort(middle + 1, last, middle);
        last = middle - 1;
      }
    }
    if (first < last) insertionSort(first, last);
  }

 private:
  /// Takes an item out at random and leaves the hole in the first place.
  Item takePivot(Place first, Place last) {
    std::uniform_int_distribution<std::ptrdiff_t> among(0, last - first);
    Place place = first + among(random_);
    Item pivot = std::move(*place);
    if (place != first) *place = std::move(*first);
    return pivot;
  }

  std::minstd_rand random_{std::random_device{}()};
};

// NOLINTEND(clang-analyzer-cplusplus.Move)

}  // namespace

void QuickSortStrings(std::vector<std::u16string>& sItems, std::int32_t lMin, std::int32_t lMax) {
  if (lMin >= lMax) return;
  QuickSort().sort(sItems.data() + lMin, sItems.data() + lMax, nullptr);
}

void SortList(forms::ListBox& lstSort) {
  std::vector<std::u16string> items = lstSort.entries().all();
  QuickSortStrings(items, 0, static_cast<std::int32_t>(items.size()) - 1);
  lstSort.Clear();
  for (std::u16string& item : items) lstSort.AddItem(std::move(item));
}

}  // namespace kvrnstep::dialogs
