#include "stepfiles/step_folder.h"

#include <algorithm>

#include "platform/files.h"
#include "stepfiles/step_record.h"
#include "text/letter_case.h"
#include "text/paths.h"
#include "text/text.h"

namespace kvrnstep::stepfiles {

namespace {

bool isStepFile(std::u16string_view name) {
  return name.size() >= kStepExtension.size() &&
         text::equalIgnoringCase(name.substr(name.size() - kStepExtension.size()), kStepExtension);
}

/// Letter case decides only between names that are otherwise equal.
bool comesBefore(std::u16string_view one, std::u16string_view other) {
  const auto [inOne, inOther] = std::ranges::mismatch(one, other, [](char16_t a, char16_t b) {
    return a == b || text::smallLetter(a) == text::smallLetter(b);
  });
  if (inOne != one.end() && inOther != other.end()) {
    return text::smallLetter(*inOne) < text::smallLetter(*inOther);
  }
  return one.size() != other.size() ? one.size() < other.size() : one < other;
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
  return text::inFolder(folder, entry).append(kStepExtension);
}

}  // namespace kvrnstep::stepfiles
