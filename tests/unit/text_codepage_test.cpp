#include <gtest/gtest.h>

#include <string>

#include "text/codepage.h"

namespace kvrnstep::text {
namespace {

using namespace std::string_literals;

std::u16string utf16(char32_t code) {
  if (code < 0x10000) return {static_cast<char16_t>(code)};
  return {static_cast<char16_t>(0xD7C0 + (code >> 10U)),
          static_cast<char16_t>(0xDC00 + (code & 0x3FFU))};
}

TEST(CodePage, WritesUtf8) {
  EXPECT_EQ(toUtf8(u"Step 1\r\n"), "Step 1\r\n");
  EXPECT_EQ(toUtf8(u"é"), "\xC3\xA9");
  EXPECT_EQ(toUtf8(u"€"), "\xE2\x82\xAC");
  EXPECT_EQ(toUtf8(u"😀"), "\xF0\x9F\x98\x80");
  EXPECT_EQ(toUtf8(u"\u007F\u0080\u07FF\u0800\uFFFF"),
            "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF");
  EXPECT_EQ(toUtf8(std::u16string(1, 0xD800)), "\xED\xA0\x80");
  EXPECT_EQ(toUtf8(std::u16string{0xDC00, 0xD800}), "\xED\xB0\x80\xED\xA0\x80");
  EXPECT_EQ(toUtf8(u"\uFEFFa"), "\xEF\xBB\xBF"s + "a");
  EXPECT_EQ(toUtf8(std::u16string(1, u'\0')), "\0"s);
}

TEST(CodePage, EveryCharacterComesBack) {
  for (char32_t code = 0; code <= 0x10FFFF; ++code) {
    const auto text = utf16(code);
    ASSERT_EQ(fromBytes(toBytes(text)), text) << static_cast<unsigned>(code);
    ASSERT_EQ(fromBytes(toUtf8(text)), text) << static_cast<unsigned>(code);
  }
}

TEST(CodePage, EveryByteAloneIsItsOwnCharacter) {
  for (unsigned byte = 0; byte < 256; ++byte) {
    const auto text = fromBytes(std::string(1, static_cast<char>(byte)));
    ASSERT_EQ(text, std::u16string(1, fromWindows1252(static_cast<unsigned char>(byte))));
    ASSERT_EQ(fromBytes(toBytes(text)), text);
  }
}

TEST(CodePage, BytesOfWindows) {
  EXPECT_EQ(textFromWindows1252("\x80\x85\x92\x99\x9F\xA0\xE9\xFF"), u"€…’™Ÿ\u00A0éÿ");
  EXPECT_EQ(textFromWindows1252("\x81\x8D\x8F\x90\x9D"),
            (std::u16string{0x81, 0x8D, 0x8F, 0x90, 0x9D}));
}

TEST(CodePage, AnythingButUtf8IsOfWindowsAsAWhole) {
  // The first character alone would be UTF-8.
  EXPECT_EQ(fromBytes("\xC3\xA9 \xE9"), u"Ã© é");

  const std::string notUtf8[] = {
      "\x80",              // a following byte first
      "\xC3",              // nothing follows
      "\xC3(",             // no following byte
      "\xE2\x82",          // cut off
      "\xE2\x82(",         //
      "\xC0\x80",          // longer than need be
      "\xC1\xBF",          //
      "\xE0\x9F\xBF",      //
      "\xF0\x8F\xBF\xBF",  //
      "\xF4\x90\x80\x80",  // beyond U+10FFFF
      "\xF8\x88\x80\x80\x80",
      "\xFF\xFE",
  };
  for (const auto& bytes : notUtf8) {
    EXPECT_FALSE(isUtf8(bytes)) << testing::PrintToString(bytes);
    EXPECT_EQ(fromBytes("abcdefgh" + bytes).size(), 8 + bytes.size());
  }
  for (const std::string bytes :
       {"\xC2\x80", "\xF4\x8F\xBF\xBF", "\xED\xBF\xBF", "\xEF\xBB\xBF", ""}) {
    EXPECT_TRUE(isUtf8(bytes)) << testing::PrintToString(bytes);
  }
}

// Runs of ASCII go through in words of memory; what follows or interrupts them must not suffer.
TEST(CodePage, RunsOfAsciiOfEveryLength) {
  for (std::size_t before = 0; before < 20; ++before) {
    for (std::size_t after = 0; after < 20; ++after) {
      const auto text = std::u16string(before, u'a') + u"é" + std::u16string(after, u'b');
      const auto bytes = std::string(before, 'a') + "\xC3\xA9" + std::string(after, 'b');
      ASSERT_EQ(toUtf8(text), bytes);
      ASSERT_EQ(fromBytes(bytes), text);
      ASSERT_EQ(fromBytes(bytes + "\xE9").size(), text.size() + 2);
    }
  }
}

}  // namespace
}  // namespace kvrnstep::text
