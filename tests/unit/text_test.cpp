#include "text/text.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <limits>
#include <optional>
#include <random>

#include "text/codepage.h"
#include "text/letter_case.h"
#include "text/numbers.h"

namespace kvrnstep::text {
namespace {

TEST(TrimBlanks, LeavesNothingOfBlanksAlone) {
  EXPECT_EQ(trimBlanks(u"   "), u"");
}

TEST(Captions, AreReadWithoutMarks) {
  EXPECT_EQ(withoutMnemonic(u"&Save A&&B &"), u"Save A&B ");
  EXPECT_EQ(joined({u"a", u"", u"b"}), u"a  b");
  EXPECT_EQ(joined({}), u"");
}

TEST(LetterCase, OfWholeTexts) {
  EXPECT_EQ(upperCase(u"{step_#} åéßñ ω я 1"), u"{STEP_#} ÅÉßÑ Ω Я 1");
  EXPECT_EQ(lowerCase(u"{STEP_R} ÅÉÑ Ω Я ŸŽ"), u"{step_r} åéñ ω я ÿž");
  EXPECT_EQ(properCase(u"oNE tWO\tthree\rfour\nfive\vsix\fseven"),
            u"One Two\tThree\rFour\nFive\vSix\fSeven");
  EXPECT_EQ(properCase(std::u16string_view(u"a\0b", 3)), std::u16string_view(u"A\0B", 3));
  EXPECT_EQ(properCase(u"{STEP_#} o'neil x-ray 2ND éCOLE\xA0next"),
            u"{step_#} O'neil X-ray 2nd École\xA0next");
  EXPECT_TRUE(equalIgnoringCase(u"Éa Ñ", u"éA ñ"));
  EXPECT_FALSE(equalIgnoringCase(u"a", u"a "));
}

TEST(EqualIgnoringCase, KnowsTheLettersOfAsciiOnly) {
  EXPECT_TRUE(equalIgnoringCase("Display AZ", "dISPLAY az"));
  EXPECT_TRUE(equalIgnoringCase("", ""));
  // Others that a bit tells apart as it does letters, and their neighbours.
  for (const auto* pair : {"@`", "[{", "\\|", "]}", "^~", "\xC4\xE4", "01", "aB"}) {
    EXPECT_FALSE(equalIgnoringCase({pair, 1}, {pair + 1, 1})) << pair;
  }
  EXPECT_FALSE(equalIgnoringCase("Display", "Displa"));
}

TEST(CodePage, WritesUtf8AsTheStandardLibraryDoes) {
  std::u16string all;
  for (char32_t code = 0; code <= 0x10FFFF; ++code) {
    std::u16string character(1, static_cast<char16_t>(code));
    if (code >= 0x10000) {
      character = {static_cast<char16_t>(0xD7C0 + (code >> 10U)),
                   static_cast<char16_t>(0xDC00 + (code & 0x3FFU))};
    }
    ASSERT_EQ(fromBytes(toBytes(character)), character) << static_cast<unsigned>(code);
    ASSERT_EQ(fromBytes(toUtf8(character)), character) << static_cast<unsigned>(code);
    if (code < 0xD800 || code > 0xDFFF) all += character;
  }
  const std::u8string expected = std::filesystem::path(all).u8string();
  EXPECT_TRUE(toUtf8(all) == std::string(expected.begin(), expected.end()));
  EXPECT_EQ(toUtf8(std::u16string{0xDC00, 0xD800}), "\xED\xB0\x80\xED\xA0\x80");
}

TEST(CodePage, BytesOfWindows) {
  EXPECT_EQ(textFromWindows1252("\x80\x85\x92\x99\x9F\xA0\xE9\xFF"), u"€…’™Ÿ\u00A0éÿ");
  EXPECT_EQ(textFromWindows1252("\x81\x8D\x8F\x90\x9D"),
            (std::u16string{0x81, 0x8D, 0x8F, 0x90, 0x9D}));
}

TEST(CodePage, AnythingButUtf8IsOfWindowsAsAWhole) {
  // The first character alone would be UTF-8.
  EXPECT_EQ(fromBytes("\xC3\xA9 \xE9"), u"Ã© é");
  EXPECT_EQ(fromUtf8("\xC3\xA9 \x80"), u"é €") << "where it must be UTF-8, byte for byte";

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

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// What the C library can read of a text, without the numbers that only it knows.
std::string asciiPrefix(std::u16string_view text, std::u16string_view passedOver) {
  std::string ascii;
  for (const char16_t c : text) {
    if (passedOver.find(c) != std::u16string_view::npos) continue;
    if (c > 127 || std::strchr("0123456789.+-eE", static_cast<char>(c)) == nullptr) break;
    ascii += static_cast<char>(c);
  }
  return ascii;
}

TEST(Numbers, AreThoseThatTheCLibraryReads) {
  // The characters that numbers are made of, and a few that end them.
  constexpr std::u16string_view kCharacters = u"0123456789.+-eE \txX,nif\u0660\u2212";
  std::minstd_rand random(7);
  for (int i = 0; i < 300'000; ++i) {
    std::u16string text(random() % 10, u' ');
    for (char16_t& c : text) c = kCharacters[random() % kCharacters.size()];
    ASSERT_EQ(leadingNumber(text), std::strtod(asciiPrefix(text, u" \t").c_str(), nullptr))
        << testing::PrintToString(text);

    const std::u16string trimmed(trimBlanks(text));
    const std::string ascii = asciiPrefix(trimmed, u"");
    char* end = nullptr;
    const double whole = std::strtod(ascii.c_str(), &end);
    const bool isNumber = end != ascii.c_str() && *end == '\0' && ascii.size() == trimmed.size() &&
                          std::isfinite(whole);
    ASSERT_EQ(wholeTextNumber(text), isNumber ? std::optional(whole) : std::nullopt)
        << testing::PrintToString(text);
  }
}

TEST(Numbers, OfAnyLength) {
  const std::u16string zeros(400, u'0');
  const auto readAs = [](double number, const std::vector<std::u16string>& texts) {
    for (const auto& text : texts) {
      EXPECT_EQ(leadingNumber(text), number) << testing::PrintToString(text);
    }
  };
  readAs(0, {u"", u"0e400", u"1e-99999999999999999999", u"0." + zeros + u"1e50", u"１２"});
  readAs(1, {u"1" + zeros + u"e-400", zeros + u"1", u"0." + zeros + u"1e401", u"1\u00A02"});
  readAs(12, {u"12\r\n3", u" 1 2"});
  readAs(kInfinity, {u"1e400", u"1e99999999999999999999", u"9" + zeros + u"e-50"});
  readAs(-kInfinity, {u"-1e400"});
  readAs(1.7976931348623157e308, {u"1.7976931348623157e308"});
  for (const std::u16string text :
       {u"1e400", u"-1e400", u"&H10", u"1\u00B2", u"\u00A05", u"\t5", u"1 2"}) {
    EXPECT_EQ(wholeTextNumber(text), std::nullopt) << testing::PrintToString(text);
  }
  EXPECT_EQ(wholeTextNumber(std::u16string(1, u'\0') + u"1"), std::nullopt);
}

template <class Whole>
std::optional<Whole> obviouslyRounded(double number) {
  const double rounded = std::nearbyint(number);
  const bool fits =
      rounded >= std::numeric_limits<Whole>::min() && rounded <= std::numeric_limits<Whole>::max();
  return fits ? std::optional(static_cast<Whole>(rounded)) : std::nullopt;
}

TEST(Numbers, AreRoundedWithHalvesToTheEvenNeighbourWhereTheyFit) {
  std::vector<double> numbers{kInfinity, -kInfinity, std::nan(""), 1e300, 0.49999999999999994};
  for (const double whole :
       {0.0, 1.0, 2.0, 255.0, 256.0, 32767.0, 32768.0, 2147483647.0, 2147483648.0}) {
    for (const double part : {0.0, 0.4999, 0.5, 0.5001}) {
      numbers.insert(numbers.end(), {whole + part, -whole - part});
    }
  }
  for (const double number : numbers) {
    const auto asLong = obviouslyRounded<std::int32_t>(number);
    const auto asInteger = obviouslyRounded<std::int16_t>(number);
    // A host may have changed the mode.
    for (const int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO, FE_TONEAREST}) {
      std::fesetround(mode);
      EXPECT_EQ(roundToInt32(number), asLong) << number;
      EXPECT_EQ(roundToInt16(number), asInteger) << number;
    }
  }
}

TEST(Numbers, WritesDecimal) {
  EXPECT_EQ(decimal(0), u"0");
  EXPECT_EQ(decimal(-32768), u"-32768");
  EXPECT_EQ(decimal(std::uint8_t{200}), u"200");
  EXPECT_EQ(decimal(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
  EXPECT_EQ(decimal(9.75F), u"9.75");
  EXPECT_EQ(decimal(-0.0F), u"0");
  EXPECT_EQ(decimal(0.1F), u"0.1");
  EXPECT_EQ(decimal(10.0F / 3), u"3.333333");
  EXPECT_EQ(decimal(0.0001F), u"0.0001");
  EXPECT_EQ(decimal(1'234'567.0F), u"1234567");
}

}  // namespace
}  // namespace kvrnstep::text
