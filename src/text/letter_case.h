#pragma once

#include <string>
#include <string_view>

/// Letter case by the letters' own rules, whatever the locale of the host.
namespace kvrnstep::text {

/// The small letter of a capital one of the Latin, Greek and Cyrillic alphabets; any other
/// character is itself.
char16_t lowerCase(char16_t character);

/// Whether `one` comes before `other` in a list for people: letter case decides only between
/// texts that are otherwise equal.
bool comesBefore(std::u16string_view one, std::u16string_view other);

}  // namespace kvrnstep::text
