#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Small operations on text.
namespace kvrnstep::text {

/// The text without the blanks (U+0020, nothing else) at both ends; a part of what was passed.
std::u16string_view trimBlanks(std::u16string_view text);

/// The text up to its first NUL, or all of it; a part of what was passed.
std::u16string_view StripAtNull(std::u16string_view text);

/// The text with every occurrence of `sFind` replaced, from left to right and without overlaps;
/// letter case matters. An empty `sFind` changes nothing.
std::u16string ReplaceText(std::u16string_view sText, std::u16string_view sFind,
                           std::u16string_view sWith);

/// Whether two 8-bit names differ at most in the case of the letters A to Z.
bool equalIgnoringCase(std::string_view one, std::string_view other);

bool isAscii(std::string_view bytes);

/// The text's characters as bytes; what is not ASCII becomes "?" and so names nothing.
std::string toAscii(std::u16string_view text);

std::u16string fromAscii(std::string_view ascii);

/// The texts one behind the other, a blank between them.
std::u16string joined(const std::vector<std::u16string>& texts);

/// A caption as it is read: without the "&" before its mnemonic, and with "&" in place of "&&".
std::u16string withoutMnemonic(std::u16string_view caption);

}  // namespace kvrnstep::text
