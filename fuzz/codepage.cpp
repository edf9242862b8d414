// 8-bit texts, against an encoder written out by the book.

#include "text/codepage.h"

#include "fuzz.h"

namespace {

using namespace kvrnstep;

bool isPair(std::u16string_view text, std::size_t at) {
  return at + 1 < text.size() && text[at] >= 0xD800 && text[at] <= 0xDBFF &&
         text[at + 1] >= 0xDC00 && text[at + 1] <= 0xDFFF;
}

std::string obviousBytes(std::u16string_view text) {
  std::string bytes;
  const auto put = [&](unsigned long byte) { bytes += static_cast<char>(byte); };
  for (std::size_t at = 0; at < text.size(); ++at) {
    unsigned long code = text[at];
    if (isPair(text, at)) code = 0x10000 + (code - 0xD800) * 1024 + (text[++at] - 0xDC00U);
    if (code < 0x80) {
      put(code);
    } else if (code < 0x800) {
      put(0xC0 + code / 64);
      put(0x80 + code % 64);
    } else if (code < 0x10000) {
      put(0xE0 + code / 4096);
      put(0x80 + code / 64 % 64);
      put(0x80 + code % 64);
    } else {
      put(0xF0 + code / 262144);
      put(0x80 + code / 4096 % 64);
      put(0x80 + code / 64 % 64);
      put(0x80 + code % 64);
    }
  }
  return bytes;
}

void checkText(const std::u16string& text) {
  const std::string bytes = text::toBytes(text);
  fuzz::check(bytes == obviousBytes(text), "a text is encoded by the book");
  fuzz::check(text::isUtf8(bytes), "what is written is UTF-8");
  fuzz::check(text::fromBytes(bytes) == text, "a text comes back");
  fuzz::check(text::fromUtf8(bytes) == text, "UTF-8 comes back");
}

void checkBytes(std::string_view bytes) {
  const std::u16string text = text::fromBytes(bytes);
  const bool utf8 = text::isUtf8(bytes);
  fuzz::check(text.size() <= bytes.size(), "no byte gives two characters");
  fuzz::check(text == (utf8 ? text::fromUtf8(bytes) : text::textFromWindows1252(bytes)),
              "the bytes are one encoding or the other");
  fuzz::check(utf8 || text.size() == bytes.size(), "Windows-1252 gives a character for each byte");
  checkText(text);
  checkText(text::fromUtf8(bytes));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  checkBytes(fuzz::bytesOf(data, size));
  FuzzedDataProvider input(data, size);
  checkText(fuzz::anyText(input, size));
  return 0;
}
