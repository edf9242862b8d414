#pragma once

#include <string>
#include <string_view>

#include "generator/list_settings.h"

/// Names of step files, which tell what the files hold.
namespace kvrnstep::stepfiles {

/// The name that a setup is saved under, without folder and extension: the kind of list, its texts
/// and numbers, then a code for each option. A name that would be too long for a file with its
/// extension has its longest texts shortened, all to the same length.
std::u16string BuildStepFileName(const generator::ListSettings& settings);

/// Every character of `chars` in the text replaced by `with`.
std::u16string RemoveChars(std::u16string text, std::u16string_view chars,
                           std::u16string_view with);

/// Tabs become blanks, and runs of the character become one of it.
std::u16string CollapseRepeats(std::u16string text, char16_t ch);

}  // namespace kvrnstep::stepfiles
