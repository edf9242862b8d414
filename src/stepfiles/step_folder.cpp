#include "stepfiles/step_folder.h"

#include <algorithm>
#include <compare>

#include "platform/files.h"
#include "stepfiles/step_record.h"
#include "text/letter_case.h"
#include "text/paths.h"

namespace kvrnstep::stepfiles {

namespace {

bool isStepFile(std::u16string_view name) {
  return name.size() >= kStepExtension.size() &&
         text::equalIgnoringCase(name.substr(name.size() - kStepExtension.size()), kStepExtension);
}

/// Letter case decides only between names that are otherwise equal.
bool comesBefore(std::u16string_view one, std::u16string_view other) {
  const auto both = static_cast<std::ptrdiff_t>(std::min(one.size(), other.size()));
  const auto [rest, otherRest] = std::mismatch(one.begin(), one.begin() + both, other.begin());
  const auto order = std::lexicographical_compare_three_way(
      rest, one.end(), otherRest, other.end(),
      [](char16_t a, char16_t b) { return text::smallLetter(a) <=> text::smallLetter(b); });
  return std::is_neq(order) ? std::is_lt(order) : one < other;
}

void eraseAll(std::u16string& text, std::u16string_view part) {
  for (std::size_t place = 0; (place = text.find(part, place)) != std::u16string::npos;) {
    text.erase(place, part.size());
  }
}

}  // namespace

std::vector<std::u16string> stepFileEntries(const std::u16string& folder) {
  std::vector<std::u16string> names = platform::filesIn(folder);
  std::erase_if(names, [](const std::u16string& name) { return !isStepFile(name); });
  std::ranges::sort(names, comesBefore);
  for (std::u16string& name : names) eraseAll(name, kStepExtension);
  return names;
}

std::size_t placeOfCodes(std::u16string_view name) {
  constexpr auto kNone = std::u16string_view::npos;
  const std::size_t beforeOptions = name.find_last_not_of(u"+-ABCDEFGHIJKLMNOPQRSTUVWXYZ");
  if (beforeOptions == kNone) return kNone;
  const std::u16string_view options = name.substr(beforeOptions + 1);
  if (!options.starts_with(u'+') && !options.starts_with(u'-')) return kNone;
  return name.find_last_not_of(u"_0123456789", beforeOptions) + 1;
}

std::u16string pathOfEntry(const std::u16string& folder, const std::u16string& entry) {
  return text::inFolder(folder, entry).append(kStepExtension);
}

}  // namespace kvrnstep::stepfiles
