#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <limits>
#include <vector>

#include "text/numbers.h"

namespace kvrnstep::text {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Texts that are read as one and the same number.
struct Reading {
  double number;
  std::vector<std::u16string> texts;
};

const std::u16string kZeros(400, u'0');

TEST(Numbers, LeadingNumber) {
  const Reading readings[] = {
      {0,
       {u"", u"  ", u"ab", u"ab12", u".", u"-", u"+-7", u"--7", u"e3", u"inf", u"nan", u"0x1F",
        u"１２", u"0e400", u"1e-400", u"1e-99999999999999999999", u"0." + kZeros + u"1",
        u"0." + kZeros + u"1e50"}},
      {1,
       {u"1,5", u"1e", u"1e+", u"1ex", u"1-2", u"1\u00A02", u"1" + kZeros + u"e-400", kZeros + u"1",
        u"0." + kZeros + u"1e401"}},
      {12, {u"12", u"12ab", u" 1 2", u"12\r\n3", u"+12", u"012", u"12."}},
      {123, {u"1\t2 3 x4", u"1 2 3"}},
      {1.2, {u"1.2.3", u"12e-1"}},
      {1000, {u"1e3", u"1E+3", u"1 e 3"}},
      {0.5, {u".5", u"5e-1"}},
      {-0.5, {u"-0.5", u"- .5"}},
      {kInfinity, {u"1e400", u"1e99999999999999999999", u"9" + kZeros, u"9" + kZeros + u"e-50"}},
      {-kInfinity, {u"-1e400"}},
      {1.7976931348623157e308, {u"1.7976931348623157e308"}},
  };
  for (const auto& reading : readings) {
    for (const auto& text : reading.texts) {
      EXPECT_EQ(leadingNumber(text), reading.number) << testing::PrintToString(text);
    }
  }
}

TEST(Numbers, WholeTextNumber) {
  const Reading readings[] = {{12, {u"12", u"  12  ", u"+12", u"12.", u"1.2e1"}},
                              {-0.5, {u"-0.5", u"-.5", u"-5e-1"}},
                              {0, {u"0", u"-0", u"1e-400"}},
                              {2880, {u"2880", u"2880.0"}}};
  for (const auto& reading : readings) {
    for (const auto& text : reading.texts) {
      EXPECT_EQ(wholeTextNumber(text), reading.number) << testing::PrintToString(text);
    }
  }
  for (const std::u16string text :
       {u"",    u"   ",  u"12ab", u"ab",      u"1 2",   u"- 5",   u"\t5",    u"5\t",
        u".",   u"-",    u"1e",   u"1,5",     u"1.2.3", u"1e400", u"-1e400", u"inf",
        u"nan", u"0x10", u"&H10", u"1\u00B2", u"--1",   u"1e5e5", u"5-",     u"\u00A05"}) {
    EXPECT_EQ(wholeTextNumber(text), std::nullopt) << testing::PrintToString(text);
  }
  EXPECT_EQ(wholeTextNumber(std::u16string(1, u'\0') + u"1"), std::nullopt);
}

TEST(Numbers, RoundsHalvesToTheEvenNeighbour) {
  struct Case {
    double number;
    std::int32_t rounded;
  };
  const Case cases[] = {{0, 0},         {0.5, 0},
                        {1.5, 2},       {2.5, 2},
                        {3.5, 4},       {-0.5, 0},
                        {-1.5, -2},     {-2.5, -2},
                        {1234.5, 1234}, {1235.5, 1236},
                        {2.4999, 2},    {2.5001, 3},
                        {-2.5001, -3},  {0.49999999999999994, 0}};
  // A host may have changed the mode.
  for (const int mode : {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
    std::fesetround(mode);
    for (const auto& c : cases) EXPECT_EQ(roundToInt32(c.number), c.rounded) << c.number;
  }
  std::fesetround(FE_TONEAREST);
}

TEST(Numbers, WhatDoesNotFitIsNothing) {
  EXPECT_EQ(roundToInt16(32767.5), std::nullopt);
  EXPECT_EQ(roundToInt16(32767.4), 32767);
  EXPECT_EQ(roundToInt16(-32768.5), -32768);
  EXPECT_EQ(roundToInt16(-32769), std::nullopt);
  EXPECT_EQ(roundToInt16(70000), std::nullopt);
  EXPECT_EQ(roundToInt32(2147483647.4), 2147483647);
  EXPECT_EQ(roundToInt32(2147483647.5), std::nullopt);
  EXPECT_EQ(roundToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(roundToInt32(-2147483649.0), std::nullopt);
  for (const double number : {kInfinity, -kInfinity, std::nan(""), 1e300, -1e300}) {
    EXPECT_EQ(roundToInt16(number), std::nullopt);
    EXPECT_EQ(roundToInt32(number), std::nullopt);
  }
}

TEST(Numbers, WritesDecimal) {
  EXPECT_EQ(decimal(0), u"0");
  EXPECT_EQ(decimal(-32768), u"-32768");
  EXPECT_EQ(decimal(std::uint8_t{200}), u"200");
  EXPECT_EQ(decimal(std::numeric_limits<std::int64_t>::min()), u"-9223372036854775808");
  EXPECT_EQ(decimal(9.0F), u"9");
  EXPECT_EQ(decimal(9.75F), u"9.75");
  EXPECT_EQ(decimal(1234.5F), u"1234.5");
  EXPECT_EQ(decimal(-2880.0F), u"-2880");
  EXPECT_EQ(decimal(-0.0F), u"0");
  EXPECT_EQ(decimal(0.1F), u"0.1");
  EXPECT_EQ(decimal(10.0F / 3), u"3.333333");
  EXPECT_EQ(decimal(0.0001F), u"0.0001");
  EXPECT_EQ(decimal(1'234'567.0F), u"1234567");
}

// Window places are written and read again at every start.
TEST(Numbers, WrittenPlacesReadBack) {
  for (int quarter = -400'000; quarter <= 400'000; quarter += 7) {
    const auto place = static_cast<float>(quarter) / 4;
    ASSERT_EQ(wholeTextNumber(decimal(place)), static_cast<double>(place));
  }
}

}  // namespace
}  // namespace kvrnstep::text
