#pragma once

/// Letter case by the system's rules for all alphabets, whatever the locale of the host.
namespace kvrnstep::platform {

/// The small or the capital letter that belongs to a character; the character itself where it has
/// none, and for each half of a pair of surrogates.
char16_t lowerCase(char16_t character);
char16_t upperCase(char16_t character);

}  // namespace kvrnstep::platform
