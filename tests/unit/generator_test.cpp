#include "generator/generator.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

#include "generator/line_layout.h"
#include "generator/numerals.h"

namespace kvrnstep::generator {

void PrintTo(const ListSettings& settings, std::ostream* out) {
  *out << "type " << settings.Selection << ", options ";
  for (const auto option : settings.Option) *out << option;
  *out << ", steps " << settings.Start << " to " << settings.Count << ", spacing "
       << settings.LineSpacing;
}

namespace {

// A second reading of how a list is written: slow, step by step, with plain strings, and sharing
// nothing with the generator but the record.
namespace judge {

std::u16string fromDigits(int number) {
  const std::string digits = std::to_string(number);
  return {digits.begin(), digits.end()};
}

std::u16string letters(int number) {
  const int repeats = number <= 26 ? 1 : number <= 52 ? 2 : number <= 78 ? 3 : 4;
  const int letter = 64 + number - 26 * (repeats - 1);
  return std::u16string(static_cast<std::size_t>(repeats), static_cast<char16_t>(letter));
}

std::u16string roman(int number) {
  static const std::vector<std::pair<int, std::u16string>> kSymbols{
      {100, u"C"}, {90, u"XC"}, {50, u"L"}, {40, u"XL"}, {10, u"X"},
      {9, u"IX"},  {5, u"V"},   {4, u"IV"}, {1, u"I"}};
  std::u16string text;
  for (const auto& [value, symbol] : kSymbols) {
    for (; number >= value; number -= value) text += symbol;
  }
  return text;
}

std::u16string ordinal(int number) {
  if (number == 0) return u"";
  if (number / 10 % 10 == 1) return u"th";  // 11 to 13, and the others there end in "th" anyway
  static const std::vector<std::u16string> kByLastDigit{u"th", u"st", u"nd", u"rd", u"th",
                                                        u"th", u"th", u"th", u"th", u"th"};
  return kByLastDigit[static_cast<std::size_t>(number % 10)];
}

std::u16string replaced(std::u16string text, const std::u16string& find,
                        const std::u16string& with) {
  std::size_t at = 0;
  while ((at = text.find(find, at)) != std::u16string::npos) {
    text.replace(at, find.size(), with);
    at += with.size();
  }
  return text;
}

std::u16string macros(std::u16string text, int step) {
  text = replaced(text, u"{STEP_#}", fromDigits(step));
  text = replaced(text, u"{STEP_L}", letters(step));
  return replaced(text, u"{STEP_R}", roman(step));
}

std::u16string label(const ListSettings& settings, int step) {
  switch (settings.Selection) {
    case 0:
      return step == 0 ? u"" : fromDigits(step);
    case 1:
      return letters(step);
    default:
      return roman(step);
  }
}

// The width of the widest label from step 1 to the last one, found by writing them all.
std::size_t widest(const ListSettings& settings) {
  std::size_t width = 0;
  for (int step = 1; step <= settings.Count; ++step) {
    width = std::max(width, label(settings, step).size());
  }
  return width;
}

std::u16string lower(std::u16string text) {
  for (char16_t& c : text) {
    if (c >= u'A' && c <= u'Z') c = static_cast<char16_t>(c - u'A' + u'a');
  }
  return text;
}

std::u16string line(const ListSettings& s, int step, std::u16string prefix, std::u16string suffix) {
  if (s.Option[5] == 1) {
    if (!prefix.empty() && prefix.back() != u' ') prefix += u" ";
    if (!suffix.empty() && suffix.back() != u' ') suffix += u" ";
  }
  std::u16string text = label(s, step);
  if (s.Selection == 3) {
    text = u"";
  } else {
    while (s.Option[4] == 1 && text.size() < widest(s)) text = u" " + text;
    if (text.empty()) text = u" ";  // one place is always kept for a label
    if (s.Selection != 0 && s.Option[1] != 1) text = lower(text);
    if (s.Selection == 0 && s.Option[6] == 1) text += ordinal(step);
  }
  return macros(prefix, step) + text + macros(suffix, step);
}

std::u16string list(const ListSettings& s, std::size_t blanks) {
  const std::u16string indent(s.Option[2] == 1 ? blanks : 0, u' ');
  std::u16string text = s.Option[3] == 1 ? s.Beginning : u"";
  for (int step = s.Start; step <= s.Count; ++step) {
    text += indent + line(s, step, s.Prefix, s.Suffix);
    if (step == s.Count && s.Option[0] != 1) break;
    text += u"\r\n";
    for (int blank = 0; blank < s.LineSpacing; ++blank) {
      text += (s.Option[0] == 1 ? indent : u"") + u"\r\n";
    }
  }
  return s.Option[3] == 1 ? text + s.Ending : text;
}

}  // namespace judge

class Random {
 public:
  int upTo(int most) { return std::uniform_int_distribution(0, most)(engine_); }

  std::u16string text() {
    static const std::vector<std::u16string> kPieces{
        u"{STEP_#}", u"{STEP_L}", u"{STEP_R}", u"{step_#}", u"{STEP_", u"STEP_R}", u"}",
        u" ",        u"Part",     u"\r\n",     u"é",        u")",      u"{",       u"."};
    std::u16string result;
    for (int pieces = upTo(5); pieces > 0; --pieces) {
      result += kPieces[static_cast<std::size_t>(upTo(static_cast<int>(kPieces.size()) - 1))];
    }
    return result;
  }

  ListSettings settings() {
    ListSettings result;
    result.Selection = static_cast<std::int16_t>(upTo(3));
    for (auto& option : result.Option) option = static_cast<std::int16_t>(upTo(2));
    result.Prefix = text();
    result.Suffix = text();
    result.Start = static_cast<std::int16_t>(upTo(99));
    result.Count = static_cast<std::int16_t>(1 + upTo(98));
    result.LineSpacing = static_cast<std::int16_t>(upTo(9));
    result.Beginning = text();
    result.Ending = text();
    return result;
  }

 private:
  std::mt19937 engine_{20261122};
};

TEST(Generator, AgreesWithASecondReadingOnRandomSettings) {
  Random random;
  for (int round = 0; round < 20000; ++round) {
    const ListSettings settings = random.settings();
    const auto blanks = static_cast<std::size_t>(random.upTo(255));
    ASSERT_EQ(generateList(settings, blanks), judge::list(settings, blanks))
        << testing::PrintToString(settings);
  }
}

TEST(Generator, LettersCompleteAMacroWhereverTheyStandInIt) {
  ListSettings settings;
  settings.Selection = PrefixSuffix;
  settings.Count = 139;  // the letters of steps 137 and 139 are braces
  for (const auto* prefix :
       {u"{STEP_L}STEP_R}", u"{{STEP_L}TEP_R}", u"{S{STEP_L}EP_R}", u"{ST{STEP_L}P_R}",
        u"{STE{STEP_L}_R}", u"{STEP_{STEP_L}}", u"{STEP_R{STEP_L}"}) {
    settings.Prefix = prefix;
    EXPECT_EQ(generateList(settings, 0), judge::list(settings, 0));
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
        ASSERT_EQ(generateList(settings, 4), judge::list(settings, 4))
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
