#include "generator/generator.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "generator/numerals.h"
#include "text/text.h"

namespace kvrnstep::generator {

namespace {

using Texts = std::vector<std::pair<int, std::u16string>>;

/// The list in one line, with bars for its line breaks.
std::u16string listOf(const ListSettings& settings) {
  return text::ReplaceText(generateList(settings, 2).value(), u"\r\n", u"|");
}

TEST(Generator, HasALimit) {
  ListSettings settings{.Prefix = std::u16string(KVRNSTEP_LONGEST_LIST / 2 - 2, u'p'), .Count = 2};
  EXPECT_EQ(generateList(settings, 0).value().size(), KVRNSTEP_LONGEST_LIST);
  settings.Prefix += u'p';
  EXPECT_FALSE(generateList(settings, 0));
}

TEST(Generator, Layout) {
  ListSettings settings{.Prefix = u"Step", .Suffix = u".", .Count = 2, .LineSpacing = 1};
  settings.Option[Indentation] = 1;
  EXPECT_EQ(listOf(settings), u"  Step1.||  Step2.");
  settings.Beginning = u"B";
  settings.Ending = u"E";
  settings.Option = {1, 0, 1, 1, 0, 1, 1};
  EXPECT_EQ(listOf(settings), u"B  Step 1st. |  |  Step 2nd. |  |E");
  settings.Option = {1, 0, 0, 0, 0, 1, 2};
  settings.Prefix = u" ";
  settings.Suffix = u"";
  EXPECT_EQ(listOf(settings), u" 1|| 2||");
  settings.Start = 3;
  EXPECT_EQ(listOf(settings), u"") << "no step, no line";
  settings.Option[AddBegEnd] = 1;
  EXPECT_EQ(listOf(settings), u"BE");
  settings = {.Start = -1, .Count = 1, .LineSpacing = -1};
  EXPECT_EQ(listOf(settings), u"-1 1") << "a negative spacing joins the lines";
  settings = {.Start = 32766, .Count = 32767};
  EXPECT_EQ(listOf(settings), u"32766|32767");
}

TEST(Generator, Labels) {
  ListSettings settings{.Option = {0, 1, 0, 0, 1, 0, 1}, .Suffix = u")", .Start = 8, .Count = 12};
  EXPECT_EQ(listOf(settings), u" 8th)| 9th)|10th)|11th)|12th)");
  settings.Selection = RomanNumeral;
  settings.Start = 11;
  EXPECT_EQ(listOf(settings), u"  XI)| XII)");
  settings.Selection = Alphabetical;
  settings.Option[UpperCase] = 0;
  settings.Count = 27;
  settings.Start = 26;
  EXPECT_EQ(listOf(settings), u" z)|aa)");
  settings.Selection = PrefixSuffix;
  EXPECT_EQ(listOf(settings), u")|)");
  settings.Selection = -1;
  EXPECT_EQ(listOf(settings), u")|)") << "a type that there is not";

  // Step 0 has no digits, no ordinal and no Roman numeral, but takes up one place.
  settings = {.Option = {0, 0, 0, 0, 0, 0, 1}, .Prefix = u"{STEP_#}", .Start = 0, .Count = 0};
  EXPECT_EQ(listOf(settings), u"0 ");
  settings.Selection = RomanNumeral;
  EXPECT_EQ(listOf(settings), u"0 ");
  // The characters beyond the alphabet have small letters as well.
  settings = {.Selection = Alphabetical, .Start = 206, .Count = 206};
  EXPECT_EQ(listOf(settings), u"àààà");
}

TEST(Generator, AlignedLabelsAreAsWideAsTheWidest) {
  const std::vector<std::vector<std::pair<std::int16_t, std::size_t>>> widths{
      {{0, 1}, {9, 1}, {10, 2}, {99, 2}, {100, 2}},
      {{26, 1}, {27, 2}, {52, 2}, {53, 3}, {78, 3}, {79, 4}, {99, 4}, {100, 0}},
      {{1, 1}, {2, 2}, {3, 3}, {7, 3}, {8, 4}, {18, 5}, {37, 6}, {38, 7}, {88, 8}, {100, 0}}};
  for (const std::int16_t type : {Numbered, Alphabetical, RomanNumeral}) {
    for (const auto& [count, width] : widths.at(static_cast<std::size_t>(type))) {
      const std::int16_t emptyLabel = type == Numbered ? 0 : -65;
      const ListSettings settings{
          .Selection = type, .Option = {0, 0, 0, 0, 1}, .Start = emptyLabel, .Count = count};
      const std::u16string list = listOf(settings);
      EXPECT_EQ(list.substr(0, list.find(u'|')).size(), width) << type << ", " << count;
    }
  }
}

TEST(Generator, Macros) {
  ListSettings settings{.Selection = PrefixSuffix, .Start = 18, .Count = 19};
  settings.Prefix = u"{STEP_#}{STEP_L}{STEP_R}{STEP_#}";
  settings.Suffix = u"{step_#}{STEP_";
  EXPECT_EQ(listOf(settings), u"18RXVIII18{step_#}{STEP_|19SXIX19{step_#}{STEP_");
  // Letters complete a macro that is replaced after them, and no other.
  settings.Prefix = u"{STEP_{STEP_L}}";
  settings.Suffix = u"{{STEP_L}TEP_L}";
  EXPECT_EQ(listOf(settings), u"XVIII{RTEP_L}|{STEP_S}{STEP_L}");
}

TEST(LineSpacing, HasAtMostNineBlankLines) {
  EXPECT_EQ(BuildLineSpacing(u"|", -1, u"."), u"");
  EXPECT_EQ(BuildLineSpacing(u"|", 0, u"."), u"|");
  EXPECT_EQ(BuildLineSpacing(u"|", 9, u"."), u"|.|.|.|.|.|.|.|.|.|");
  EXPECT_EQ(BuildLineSpacing(u"|", 12, u"."), BuildLineSpacing(u"|", 9, u"."));
}

TEST(Numerals, OfEveryRange) {
  const Texts letters{{0, u"@"},    {1, u"A"},      {26, u"Z"},    {27, u"AA"},    {52, u"ZZ"},
                      {53, u"AAA"}, {78, u"ZZZ"},   {79, u"AAAA"}, {104, u"ZZZZ"}, {105, u"[[[["},
                      {-65, u""},   {269, u"ÿÿÿÿ"}, {270, u""},    {142, u"€€€€"}};
  for (const auto& [number, text] : letters) EXPECT_EQ(ToStepLetters(number), text) << number;
  EXPECT_EQ(ToStepLetters(-64), std::u16string(1, u'\0'));

  const Texts romans{{-3, u""},           {0, u""},
                     {1, u"I"},           {222, u"CCXXII"},
                     {333, u"CCCXXXIII"}, {444, u"CDXLIV"},
                     {555, u"DLV"},       {666, u"DCLXVI"},
                     {777, u"DCCLXXVII"}, {888, u"DCCCLXXXVIII"},
                     {1994, u"MCMXCIV"},  {2999, u"MMCMXCIX"},
                     {3111, u"MMMCXI"},   {4444, u""}};
  for (const auto& [number, text] : romans) EXPECT_EQ(ToRomanNumeral(number), text) << number;

  const Texts ordinals{{0, u""},     {1, u"st"},  {2, u"nd"},   {3, u"rd"},   {4, u"th"},
                       {10, u"th"},  {11, u"th"}, {12, u"th"},  {13, u"th"},  {20, u"th"},
                       {21, u"st"},  {99, u"th"}, {101, u"st"}, {111, u"th"}, {122, u"nd"},
                       {-11, u"th"}, {-1, u"st"}};
  for (const auto& [number, text] : ordinals) EXPECT_EQ(OrdinalSuffix(number), text) << number;
}

}  // namespace

}  // namespace kvrnstep::generator
