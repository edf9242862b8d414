#include "stepfiles/step_folder.h"

#include <algorithm>

#include "platform/files.h"
#include "platform/letter_case.h"
#include "stepfiles/step_record.h"
#include "text/characters.h"
#include "text/text.h"

namespace kvrnstep::stepfiles {

namespace {

/// Whether the name ends in ".step", whatever the letter case.
bool isStepFile(std::u16string_view name) {
  if (name.size() < kStepExtension.size()) return false;
  return std::ranges::equal(name.substr(name.size() - kStepExtension.size()), kStepExtension, {},
                            platform::lowerCase);
}

/// The order of a list for people: letter case decides only between names that are otherwise
/// equal.
bool comesBefore(std::u16string_view one, std::u16string_view other) {
  const std::size_t shorter = std::min(one.size(), other.size());
  for (std::size_t i = text::lengthInCommon(one, other); i < shorter; ++i) {
    if (one[i] == other[i]) continue;
    const char16_t inOne = platform::lowerCase(one[i]);
    const char16_t inOther = platform::lowerCase(other[i]);
    if (inOne != inOther) return inOne < inOther;
  }
  if (one.size() != other.size()) return one.size() < other.size();
  return one < other;
}

}  // namespace

std::vector<std::u16string> stepFileEntries(const std::u16string& folder) {
  std::vector<std::u16string> names = platform::filesIn(folder);
  std::erase_if(names, [](const std::u16string& name) { return !isStepFile(name); });
  std::ranges::sort(names, comesBefore);
  for (std::u16string& name : names) name = text::ReplaceText(name, kStepExtension, u"");
  return names;
}

std::u16string pathOfEntry(const std::u16string& folder, const std::u16string& entry) {
  std::u16string path = folder;
  path += platform::kSeparator;
  path += entry;
  path += kStepExtension;
  return path;
}

}  // namespace kvrnstep::stepfiles
