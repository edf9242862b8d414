#pragma once

#include <string>
#include <string_view>

/// Between the UTF-16 of the inside and the 8-bit text of files, paths and C interfaces. None of
/// these functions fails, and whatever `toBytes` wrote comes back from `fromBytes` unchanged.
namespace kvrnstep::text {

/// UTF-8. Half a surrogate pair, which UTF-8 has no room for, is written as three bytes like any
/// other character of its size, so that it survives. Byte order marks are ordinary characters.
std::string toBytes(std::u16string_view text);

/// Reads all of the bytes as UTF-8 if that is what they are, otherwise all of them as
/// Windows-1252, so that files made on Windows open with their accents.
std::u16string fromBytes(std::string_view bytes);

/// Whether the bytes are UTF-8, the three-byte surrogates of `toBytes` included. Bytes that are
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
