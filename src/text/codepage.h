#pragma once

#include <string>
#include <string_view>

/// Converts between the UTF-16 inside the plug-in and the 8-bit text of files, paths and C
/// interfaces. None of these functions fails, and `fromBytes` returns exactly the text that
/// `toBytes` was given.
namespace kvrnstep::text {

/// The text as files hold it. On Windows that is the system's code page, which other programs
/// expect, if the text can be read back unchanged from it; otherwise, and on every other system, it
/// is UTF-8. A file must be converted by one call, because each call chooses its own encoding.
std::string toBytes(std::u16string_view text);

/// Reads the bytes as UTF-8 if all of them are that, otherwise by `fromAnsi`, so that files from
/// every system can be read.
std::u16string fromBytes(std::string_view bytes);

/// UTF-8. Half a surrogate pair is no valid UTF-8, but is written as three bytes nevertheless, so
/// that it can be read back. Byte order marks are ordinary characters.
std::string toUtf8(std::u16string_view text);

/// Text in the system's code page on Windows, elsewhere in Windows-1252.
std::u16string fromAnsi(std::string_view bytes);

/// Whether all of the bytes are UTF-8, the three-byte surrogates of `toUtf8` included.
bool isUtf8(std::string_view bytes);

/// UTF-8 to UTF-16; a byte that belongs to no character is read as Windows-1252.
std::u16string fromUtf8(std::string_view bytes);

/// Windows-1252 to UTF-16, one character a byte.
std::u16string textFromWindows1252(std::string_view bytes);

/// The character of one byte. The five bytes without a meaning give U+0081, U+008D, U+008F,
/// U+0090 and U+009D.
char16_t fromWindows1252(unsigned char byte);

}  // namespace kvrnstep::text
