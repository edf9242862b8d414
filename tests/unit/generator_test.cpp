#include "generator/generator.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "generator/line_layout.h"
#include "generator/numerals.h"
#include "obvious_list.h"

namespace kvrnstep::generator {

void PrintTo(const ListSettings& settings, std::ostream* out) {
  *out << "type " << settings.Selection << ", options ";
  for (const auto option : settings.Option) *out << option;
  *out << ", steps " << settings.Start << " to " << settings.Count << ", spacing "
       << settings.LineSpacing;
}

namespace {

TEST(Generator, LettersCompleteAMacroWhereverTheyStandInIt) {
  ListSettings settings;
  settings.Selection = PrefixSuffix;
  settings.Count = 139;  // the letters of steps 137 and 139 are braces
  for (const auto* prefix :
       {u"{STEP_L}STEP_R}", u"{{STEP_L}TEP_R}", u"{S{STEP_L}EP_R}", u"{ST{STEP_L}P_R}",
        u"{STE{STEP_L}_R}", u"{STEP_{STEP_L}}", u"{STEP_R{STEP_L}"}) {
    settings.Prefix = prefix;
    EXPECT_EQ(generateList(settings, 0), judges::obviousList(settings, 0));
  }
}

TEST(Generator, AgreesOnEveryRangeOfStepsForEveryTypeAndOption) {
  for (int type = 0; type <= 3; ++type) {
    for (int options = 0; options < 128; ++options) {
      ListSettings settings;
      settings.Selection = static_cast<std::int16_t>(type);
      for (unsigned i = 0; i < 7; ++i) {
        settings.Option.at(i) = static_cast<std::int16_t>(options >> i & 1);
      }
      settings.Prefix = u"{STEP_{STEP_L}} ";
      settings.Suffix = u".";
      for (int count = 1; count <= 99; count += options % 7 + 1) {
        settings.Count = static_cast<std::int16_t>(count);
        settings.Start = static_cast<std::int16_t>(options % 5 * 7);
        ASSERT_EQ(generateList(settings, 4), judges::obviousList(settings, 4))
            << testing::PrintToString(settings);
      }
    }
  }
}

TEST(Generator, HoldsBeyondWhatTheDialogLetsIn) {
  ListSettings settings;
  settings.Count = -1;
  EXPECT_EQ(generateList(settings, 4), u"");

  settings = {.Selection = Alphabetical, .Option = {0, 0, 0, 0, 1}, .Start = 104, .Count = 105};
  EXPECT_EQ(generateList(settings, 4), u"zzzz\r\n[[[[") << "no padding above 99";

  settings = {.Selection = Alphabetical, .Start = 152, .Count = 269};
  EXPECT_EQ(generateList(settings, 4), judges::obviousList(settings, 4));

  settings = {.Start = -1, .Count = 1};
  EXPECT_EQ(generateList(settings, 4), u"-1\r\n \r\n1");

  settings = {.Start = 32766, .Count = 32767, .LineSpacing = -1};
  EXPECT_EQ(generateList(settings, 4), u"3276632767") << "a negative spacing joins the lines";
}

TEST(LineSpacing, HasAtMostNineBlankLines) {
  EXPECT_EQ(BuildLineSpacing(u"|", -1, u"."), u"");
  EXPECT_EQ(BuildLineSpacing(u"|", 0, u"."), u"|");
  EXPECT_EQ(BuildLineSpacing(u"|", 2, u"."), u"|.|.|");
  EXPECT_EQ(BuildLineSpacing(u"|", 9, u"."), u"|.|.|.|.|.|.|.|.|.|");
  EXPECT_EQ(BuildLineSpacing(u"|", 12, u"."), BuildLineSpacing(u"|", 9, u"."));
}

TEST(Numerals, BeyondTheJudgesRange) {
  const std::vector<std::pair<int, std::u16string>> letters{
      {0, u"@"},      {-64, std::u16string(1, u'\0')},
      {-65, u""},     {104, u"ZZZZ"},
      {269, u"ÿÿÿÿ"}, {270, u""},
      {142, u"€€€€"}};
  for (const auto& [number, text] : letters) EXPECT_EQ(ToStepLetters(number), text) << number;

  const std::vector<std::pair<int, std::u16string>> romans{
      {-3, u""},   {0, u""},    {444, u"CDXLIV"}, {1994, u"MCMXCIV"}, {3999, u"MMMCMXCIX"},
      {4000, u""}, {32767, u""}};
  for (const auto& [number, text] : romans) EXPECT_EQ(ToRomanNumeral(number), text) << number;

  const std::vector<std::pair<int, std::u16string>> ordinals{
      {101, u"st"}, {111, u"th"}, {112, u"th"}, {1013, u"th"},
      {122, u"nd"}, {-11, u"th"}, {-1, u"st"}};
  for (const auto& [number, text] : ordinals) EXPECT_EQ(OrdinalSuffix(number), text) << number;
}

}  // namespace

}  // namespace kvrnstep::generator
