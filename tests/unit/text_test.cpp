#include "text/text.h"

#include <gtest/gtest.h>

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
