#include "text/text.h"

#include <gtest/gtest.h>

#include "text/letter_case.h"
#include "text/paths.h"

namespace kvrnstep::text {
namespace {

TEST(TrimBlanks, TakesBlanksAndNothingElse) {
  EXPECT_EQ(trimBlanks(u"  a b  "), u"a b");
  EXPECT_EQ(trimBlanks(u"a"), u"a");
  EXPECT_EQ(trimBlanks(u"   "), u"");
  EXPECT_EQ(trimBlanks(u""), u"");
  EXPECT_EQ(trimBlanks(u" \ta\u00A0 "), u"\ta\u00A0");
}

TEST(ReplaceText, ReplacesFromLeftToRight) {
  struct Case {
    std::u16string_view text, find, with, result;
  };
  const Case cases[] = {
      {u"a{#}b{#}", u"{#}", u"7", u"a7b7"}, {u"aaa", u"aa", u"b", u"ba"},  // no overlaps
      {u"ab", u"a", u"aa", u"aab"},  // what was put in is not searched again
      {u"aabb", u"ab", u"", u"ab"},  // nor what moved together
      {u"Abc", u"a", u"x", u"Abc"},  // letter case matters
      {u"abc", u"", u"x", u"abc"},          {u"", u"a", u"x", u""},
      {u"ab", u"abc", u"x", u"ab"},         {u"abc", u"abc", u"", u""},
  };
  for (const auto& c : cases) EXPECT_EQ(ReplaceText(c.text, c.find, c.with), c.result);
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

TEST(Paths, Separators) {
  EXPECT_EQ(withoutTrailingSeparator(u"/a/b/"), u"/a/b");
  EXPECT_EQ(withoutTrailingSeparator(u"C:\\a\\"), u"C:\\a");
  EXPECT_EQ(withoutTrailingSeparator(u"a//"), u"a/");
  EXPECT_EQ(withoutTrailingSeparator(u"C:"), u"C:");
  EXPECT_EQ(withoutTrailingSeparator(u""), u"");
}

TEST(EqualIgnoringCase, KnowsTheLettersOfAsciiOnly) {
  EXPECT_TRUE(equalIgnoringCase("Display", "dISPLAY"));
  EXPECT_TRUE(equalIgnoringCase("", ""));
  EXPECT_FALSE(equalIgnoringCase("Display", "Displa"));
  EXPECT_FALSE(equalIgnoringCase("Option0", "Option1"));
  EXPECT_FALSE(equalIgnoringCase("@[`{", "`{@["));  // neighbours of the letters
  EXPECT_FALSE(equalIgnoringCase("\xC4", "\xE4"));
}

}  // namespace
}  // namespace kvrnstep::text
