#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

#include "kvrnstep/kvrnstep.h"
#include "text/codepage.h"

/// Values from and to hosts in C. UTF-8 and C structs are converted here, and exceptions end here.
namespace kvrnstep::component {

/// A struct as this version knows it. Fields that the host does not know have their defaults.
/// Nothing if the host did not initialise its struct.
/// @param least the size of the shortest struct that is taken; a shorter one is a host's mistake
template <class Struct>
std::optional<Struct> known(const Struct* given, Struct defaults, std::size_t least) {
  // There is no padding at the end. A later version would put a new field there, and the padding of
  // an older host may have any value.
  static_assert(std::has_unique_object_representations_v<Struct>);
  if (given == nullptr || given->size < least) return std::nullopt;
  std::memcpy(static_cast<void*>(&defaults), given,
              std::min<std::size_t>(given->size, sizeof(Struct)));
  return defaults;
}

/// Fills those fields of the host's struct that the host knows.
template <class Struct>
void initialise(Struct* given, std::uint32_t size, const Struct& defaults) {
  if (given == nullptr || size < sizeof(given->size)) return;
  std::memset(static_cast<void*>(given), 0, size);
  std::memcpy(static_cast<void*>(given), &defaults, std::min<std::size_t>(size, sizeof(Struct)));
  given->size = size;
}

inline std::u16string textOf(const char* given) {
  return given == nullptr ? std::u16string() : text::fromUtf8(given);
}

/// A copy that the host frees, in C's memory because the host may have another allocator.
inline char* copyOf(const std::string& bytes) {
  auto* copy = static_cast<char*>(std::malloc(bytes.size() + 1));
  if (copy != nullptr) std::memcpy(copy, bytes.c_str(), bytes.size() + 1);
  return copy;
}

/// Takes over what a host passes, and notes when a number does not fit.
struct Take {
  bool allFit = true;
  void operator()(bool& field, std::int32_t given) { field = given != 0; }
  void operator()(std::u16string& field, const char* given) { field = textOf(given); }
  template <class Number>
  void operator()(Number& field, std::int32_t given) {
    allFit = allFit && std::in_range<Number>(given);
    field = static_cast<Number>(given);
  }
};

/// No exception may reach a host.
template <class Result, class Function>
Result guarded(Result failure, Function function) noexcept {
  try {
    return function();
  } catch (const std::exception&) {
    return failure;
  }
}

/// Calls a function that sets a list, and hands the list out if the result is positive.
template <class Function>
int guardedList(char** handedOut, Function function) noexcept {
  if (handedOut == nullptr) return KVRNSTEP_BAD_ARGUMENT;
  *handedOut = nullptr;
  return guarded<int>(KVRNSTEP_FAILED, [&] {
    std::u16string list;
    const int result = function(list);
    if (result > 0) *handedOut = copyOf(text::toUtf8(list));
    return result > 0 && *handedOut == nullptr ? KVRNSTEP_FAILED : result;
  });
}

}  // namespace kvrnstep::component
