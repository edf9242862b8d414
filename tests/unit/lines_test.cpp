#include "lines/lines.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "../../fuzz/line_laws.h"

namespace kvrnstep::lines {

namespace {

using namespace generator;  // NOLINT(google-build-using-namespace)

struct Case {
  const char* what;
  std::string before;
  std::string after;
  LineOptions options;
};

void check(decltype(number)& change, const std::vector<Case>& cases) {
  for (const auto& [what, before, after, options] : cases) {
    EXPECT_EQ(judges::changed(change, before, options), after) << what;
  }
}

LineOptions described(std::int16_t type, std::u16string prefix, std::u16string suffix,
                      std::array<std::int16_t, kListOptionCount> on = {}) {
  return {.list =
              ListSettings{.Selection = type, .Option = on, .Prefix = prefix, .Suffix = suffix}};
}

TEST(NumberLines, PutsALabelBeforeEachLineWithText) {
  auto framed = described(Numbered, u"", u") ", {1, 0, 1, 1, 1, 0, 1});
  framed.list->LineSpacing = 1;
  framed.list->Beginning = u"B\r\n";
  framed.list->Ending = u"E";
  framed.indentBlanks = 2;
  framed.start = 9;
  check(number,
        {{"its own blanks", " a\r\n\tb\n", " 1. a\r\n\t2. b\n", {}},
         {"other bytes",
          "\xef\xbb\xbf\xff\n\rb\n",
          "\xef\xbb\xbf"
          "1. \xff\n2. \rb\n",
          {}},
         {"macros", "a\nb", "A/I a\nB/II b", described(PrefixSuffix, u"{STEP_L}/{STEP_R} ", u"")},
         {"aligned", "a\nb\nc", "i.  i) a\ni. ii) b\ni.iii) c",
          described(RomanNumeral, u"i.", u") ", {0, 0, 0, 0, 1})},
         {"a frame", "a\nb\n", "B\n   9th) a\n  \n  10th) b\n  \nE", framed},
         {"nothing", "", "", {}}});
  LineOptions letters = described(Alphabetical, u"", u") ");
  letters.start = 26 * 4;
  check(number, {{"letters without end", "a\nb", "zzzz) a\naaaaa) b", letters}});
}

TEST(RenumberLines, FindsLists) {
  check(
      renumber,
      {{"delimiters", "4. a\n9. b\n\n2) c\n2) d\n7: e\n", "1. a\n2. b\n\n1) c\n2) d\n1: e\n", {}},
       {"no items", "1.x\n(2) a\n2.) b\n3 c\n4", "1.x\n(2) a\n2.) b\n3 c\n4", {}},
       {"the line's end", "2.\n2.\t\n", "1.\n2.\t\n", {}},
       {"inner lists",
        "1. a\n  5. b\n  5. c\n1. d\n\t3. e\n",
        "1. a\n  1. b\n  2. c\n2. d\n\t1. e\n",
        {}},
       {"other text", "3. a\nb\n3. c\n\nd\n3. e\n", "1. a\nb\n2. c\n\nd\n1. e\n", {}},
       {"headings", "3. a\n## b\n3. c\n#d\n3. e\n", "1. a\n## b\n1. c\n#d\n2. e\n", {}},
       {"bullets",
        "- a\n  3. b\n- c\n  3. d\n1. e\n- f\n3. g",
        "- a\n  1. b\n- c\n  1. d\n1. e\n- f\n2. g",
        {}},
       {"code",
        "2. a\n\n```\n7. x\n```\n7. b\n~~~~\n7. x\n~~~\n",
        "1. a\n\n```\n7. x\n```\n2. b\n~~~~\n7. x\n~~~\n",
        {}},
       {"a list anew", "1. a\na) b\n2. c\n\na) d\n\n1. e", "1. a\na) b\n2. c\n\na) d\n\n1. e", {}},
       {"what is behind the label", "2.  [ ] 7. x\r\n2.\t[x]", "1.  [ ] 7. x\r\n2.\t[x]", {}}});
}

TEST(RenumberLines, ReadsLetters) {
  check(renumber,
        {{"letters", "h) a\ni) b\nz) c\n", "a) a\nb) b\nc) c\n", {}},
         {"Roman numerals", "v. a\ni. b\nII. x\niv. c\n", "i. a\nii. b\nII. x\niii. c\n", {}},
         {"an i by its neighbour", "i. a\nj. b\n", "a. a\nb. b\n", {}},
         {"a single letter", "e) x\n\ni) y\n\nz\n\nk. x", "a) x\n\nb) y\n\nz\n\nk. x", {}},
         {"abbreviations", "e. g. x\ni. e. y\nJ. R. Smith", "e. g. x\ni. e. y\nJ. R. Smith", {}},
         {"words", "note: x\nto: y\nNb: z", "note: x\nto: y\nNb: z", {}},
         {"beyond z", "z. a\nb. b", "ccc. a\nddd. b", {.start = 55}}});
}

TEST(RenumberLines, NumbersAsTheOptionsSay) {
  check(renumber,
        {{"the first list", "1. a\n  2. b\n\nx\n\n1. c", "7. a\n  1. b\n\nx\n\n1. c", {.start = 7}},
         {"zeros", "07. a\n1. b\n\nx\n\n1. c", "01. a\n02. b\n\nx\n\n1. c", {}},
         {"no zero at first", "01. a\n2. b", "10. a\n9. b", {.start = 10, .step = -1}},
         {"more zeros", "1. a\nb) b\na) c", "001. a\na) b\nb) c", {.digits = 3}},
         {"aligned and moved", "10. c\n 1. a\n 2. b\n", " 1. c\n 2. a\n 3. b\n", {}},
         {"… and wider", "  i. a\n ii. b\niii. c\n  v. d", "  i. a\n ii. b\niii. c\n iv. d", {}},
         {"no inner list", "100. a\n  1. b\n101. c", "100. a\n  1. b\n101. c", {.start = 100}},
         {"described", "Step X) a\nI) b\n\nStep X) ", "Step I) a\nI) b\n\nStep II) ",
          described(RomanNumeral, u"Step ", u") ", {0, 1})}});
}

TEST(UnnumberLines, TakesLabelsAway) {
  check(unnumber,
        {{"lists", "5. a\n  b) x\n  a) y\n\n 9. z", "a\n  x\n  y\n\n z", {}},
         {"what number put in", "1. 1. a\n\n2. b", "1. a\n\nb", {}},
         {"described", "Step 2: a\n1. b\n", "a\n1. b\n", described(Numbered, u"Step ", u": ")}});
}

TEST(Lines, AroundALine) {
  const std::string text = "a\nb\n\n2. c\n\n   7. d\n\ne\n\n```\n# f\n\n4. x\n```\n9) g\n";
  check(number, {{"a paragraph", "a\n\nb\nc\n\n", "a\n\n1. b\n2. c\n\n", {.line = 4}},
                 {"a blank line", "a\n\nb", "a\n\nb", {.line = 2}},
                 {"bytes of a mark", "a\n\n\xef\xbb\xbf", "a\n\n1. \xef\xbb\xbf", {.line = 3}},
                 {"behind the end", "a\n", "a\n", {.line = 2}}});
  check(renumber, {{"from its lists to text outside",
                    text,
                    "a\nb\n\n1. c\n\n   1. d\n" + text.substr(text.find("\ne\n")),
                    {.line = 1}},
                   {"code", text, text.substr(0, text.find("9)")) + "1) g\n", {.line = 11}},
                   {"headings", "3. a\n# b\n3. c", "3. a\n# b\n1. c", {.line = 9}}});
  check(unnumber, {{"lists", "1. a\n\nx\n1. b", "1. a\n\nx\nb", {.line = 4}}});
  check(continueList,
        {{"behind an inner list",
          "h) a\ni) b\n   9. c\n\nd\n\ne\r\n",
          "h) a\ni) b\n   9. c\n\nj) d\n\nk) e\r\n",
          {.line = 5}},
         {"from an empty line", "\xef\xbb\xbf\t9. c\n", "\xef\xbb\xbf\t9. c\n\t10. ", {.line = 2}},
         {"as they are", "1. a\n5. b\n x", "1. a\n5. b\n6. x", {.line = 3}},
         {"described", "I. x\nStep II)\nb", "I. x\nStep II)\nStep III) b", [] {
            auto options = described(RomanNumeral, u"Step ", u") ", {0, 1});
            options.line = 3;
            return options;
          }()}});
}

TEST(Lines, LabelsThatCannotBe) {
  const auto problem = [](decltype(number)& change, std::string_view text,
                          const LineOptions& options) {
    try {
      change(text, options, [](std::string_view) { ADD_FAILURE() << "something was written"; });
    } catch (const NoLabel& none) {
      return std::string(none.what());
    }
    return std::string();
  };
  auto roman = described(RomanNumeral, u"", u". ");
  roman.start = 3999;
  EXPECT_EQ(problem(number, "a\n\nb", roman),
            "line 3: there is no Roman numeral for 4000, they go from 1 to 3999");
  EXPECT_EQ(problem(renumber, "1. a\ni. a\nii. b", {.start = 1, .step = -1}),
            "line 3: there is no Roman numeral for 0, they go from 1 to 3999");
  EXPECT_EQ(problem(renumber, "x\n# x\ni. a\nii. b", {.step = -1, .line = 4}),
            "line 4: there is no Roman numeral for 0, they go from 1 to 3999");
  EXPECT_EQ(problem(continueList, "mmmcmxcix. a\nb", {.line = 2}),
            "line 2: there is no Roman numeral for 4000, they go from 1 to 3999");
  EXPECT_EQ(problem(continueList, "  1. e\nb", {.line = 2}), "there is no label above");
}

TEST(Lines, LawsOfAnyText) {
  std::mt19937 random(1);  // NOLINT(cert-msc51-cpp): the same texts each time
  const auto pick = [&](std::size_t below) { return random() % below; };
  for (int i = 0; i < 20000; ++i) {
    const std::string text = judges::anyLines(pick);
    ASSERT_EQ(judges::brokenLaw(text, judges::anyLineOptions(pick)), "") << text;
  }
}

}  // namespace

}  // namespace kvrnstep::lines
