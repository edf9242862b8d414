#pragma once

#include <string>
#include <string_view>

/// Letter case of whole texts.
namespace kvrnstep::dialogs {

std::u16string lowerCase(std::u16string_view text);
std::u16string upperCase(std::u16string_view text);
/// A capital at the beginning of every word, small letters in all other places. Words are
/// separated by blanks, tabs, line ends, page ends and zeros; any other character begins a word
/// as a letter does.
std::u16string properCase(std::u16string_view text);

bool equalIgnoringCase(std::u16string_view one, std::u16string_view other);

}  // namespace kvrnstep::dialogs
