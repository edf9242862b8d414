#pragma once

#include <string>
#include <string_view>

/// Between the UTF-16 of the inside and the 8-bit text of files, paths and C interfaces. None of
/// these functions fails, and whatever `toBytes` wrote comes back from `fromBytes` unchanged.
namespace kvrnstep::text {

/// The text as files hold it: on Windows in the system's code page if every character has a place
/// there and reads back as what it is, as other programs expect; everywhere else, and for all
/// other texts, UTF-8. A file takes one call, for each call chooses anew.
std::string toBytes(std::u16string_view text);

/// Reads all of the bytes as UTF-8 if that is what they are, otherwise all of them by `fromAnsi`,
/// so that files open with their accents on whichever system they were made.
std::u16string fromBytes(std::string_view bytes);

/// UTF-8. Half a surrogate pair, which UTF-8 has no room for, is written as three bytes like any
/// other character of its size, so that it survives. Byte order marks are ordinary characters.
std::string toUtf8(std::u16string_view text);

/// Text in the system's code page on Windows, elsewhere in Windows-1252.
std::u16string fromAnsi(std::string_view bytes);

/// Whether the bytes are UTF-8, the three-byte surrogates of `toUtf8` included. Bytes that are
/// read piece by piece take their encoding from the whole, which this tells.
bool isUtf8(std::string_view bytes);

/// UTF-8 to UTF-16; a byte that belongs to no character is read as Windows-1252.
std::u16string fromUtf8(std::string_view bytes);

/// Windows-1252 to UTF-16, one character a byte.
std::u16string textFromWindows1252(std::string_view bytes);

/// The character of one byte. The five bytes without a meaning give U+0081, U+008D, U+008F,
/// U+0090 and U+009D.
char16_t fromWindows1252(unsigned char byte);

}  // namespace kvrnstep::text
