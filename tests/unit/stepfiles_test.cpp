#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "generator/list_settings.h"
#include "platform/files.h"
#include "stepfiles/path_part.h"
#include "stepfiles/step_file_name.h"
#include "stepfiles/step_folder.h"
#include "stepfiles/step_record.h"
#include "stepfiles/stored_texts.h"
#include "temporary_folder.h"
#include "text/paths.h"

namespace kvrnstep::stepfiles {

namespace {

using generator::ListSettings;
using tests::TemporaryFolder;

const ListSettings kTasks{.Option = {0, 0, 1}, .Suffix = u".", .Count = 5, .Beginning = u"Tasks:"};

TEST(StepRecord, TakesWhatOthersWrite) {
  const std::string tail = ",0,1,5,0,0,1,0,0,0,0";
  const std::vector<std::string> tasks{
      "0,\"Tasks:\",\"\",\"\",\".\"" + tail,
      "0,\"Tasks:\",\"\",\"\",\".\"" + tail + "\n2,\"x\"",
      "\xEF\xBB\xBF\r\n 0 , \"Tasks:\" ,\t\"\",\"\", \".\"" + tail + ",99,\"more\"\r\n",
      "0,Tasks:,,, . " + tail + "\n",
      "0,\"Tasks:\",\"\",\"\",\".\", 0 , 1 , 5 ,0,0,1\n",
      "0.4,\"Tasks:\"junk,\"\",\"\",\".\",0,1.4,4.6,0,0,1,,,no"};
  for (const auto& bytes : tasks) EXPECT_EQ(parseStepRecord(bytes), kTasks) << bytes;

  for (const char* bytes :
       {"", "\r\n", "\"", ",", "garbage file, not a step", "0,\"Tasks:\",\"\",\"\",\".\"",
        "zero,a,b,c,d,0,1,5", "0,a,b,c,d,0,1,x"}) {
    EXPECT_FALSE(parseStepRecord(bytes)) << bytes;
  }
  const auto large =
      parseStepRecord("70000,\"\xE9\",\"a,\r\nb\",\"open\"\",,-99999999999,1e9,1").value();
  EXPECT_EQ(large.Selection, 32767);
  EXPECT_EQ(large.Beginning, u"é") << "bytes that are no UTF-8 are Windows-1252";
  EXPECT_EQ(large.Ending, u"a,\r\nb");
  EXPECT_EQ(large.Prefix, u"open");
  EXPECT_EQ(large.LineSpacing, -32768);
  EXPECT_EQ(large.Start, 32767);
  EXPECT_EQ(withinRanges({.Start = 50, .Count = 9}), (ListSettings{.Start = 9, .Count = 9}));
  EXPECT_EQ(withinRanges({.Start = 0, .Count = 0}), (ListSettings{.Start = 1, .Count = 1}));
}

TEST(StepFileName, TellsTheSetup) {
  struct Case {
    ListSettings settings;
    std::u16string name;
  };
  const std::vector<Case> cases{
      {{.Option = {0, 0, 0, 0, 0, 0, 1}, .Beginning = u"Step "},
       u"Numb_Step__0_1_3-IS-I-RA-BE-SS+AO"},
      {{.Selection = 2, .Prefix = u"a\t_ *|?\"`!.'<>;:\\/\r\n", .Start = 2},
       u"Roman_a___*|_0_2_3-IS-I-RA-UC-BE-SS"}};
  for (const auto& c : cases) EXPECT_EQ(BuildStepFileName(c.settings), c.name);

  // The longest texts give way: 255 bytes with the extension, no half characters.
  const std::u16string much(300, u'é');
  const std::u16string faces = u"😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀😀";
  for (const auto& [settings, name] : std::initializer_list<Case>{
           {{.Prefix = u"(", .Suffix = u")", .Beginning = much},
            u"Numb_" + much.substr(0, 109) + u"_(_)_0_1_3-IS-I-RA-BE-SS-AO"},
           {{.Prefix = much, .Suffix = u"1234567890", .Beginning = u"aa" + faces + faces},
            u"Numb_aa" + faces + u'_' + much.substr(0, 52) + u"_1234567890_0_1_3-IS-I-RA-BE-SS-AO"},
           {{.Beginning = std::u16string(std::size_t{1} << 20U, u'_'), .Ending = u"a_"},
            u"Numb_a_0_1_3-IS-I-RA-BE-SS-AO"}}) {
    EXPECT_EQ(BuildStepFileName(settings), name);
  }
}

TEST(PathPart, SplitsAtEitherSeparator) {
  const std::vector<std::u16string> none(5);
  const std::vector<std::pair<std::u16string, std::vector<std::u16string>>> cases{
      {u"/home/me/a.b.step", {u"a.b", u"a.b.step", u"/home/me/", u"/home/me", u"step"}},
      {u"C:\\Steps\\list", {u"list", u"list", u"C:\\Steps\\", u"C:\\Steps", u""}},
      {u"/.step", {u"", u".step", u"/", u"", u"step"}},
      {u"folder/", {u"", u"", u"folder/", u"folder", u""}},
      {u"list.step", none},
      {u"", none}};
  for (const auto& [path, parts] : cases) {
    for (std::size_t mode = 0; mode < parts.size(); ++mode) {
      EXPECT_EQ(PathPart(path, static_cast<PathMode>(mode)), parts[mode]) << mode;
    }
  }
}

TEST(StepFolder, ListsForPeople) {
  TemporaryFolder folder;
  for (const char* name : {"b.step", "A.STEP", "a.step.step", ".hidden.step", "a10.step", "a2.step",
                           "Ä.step", "none.txt", "step", "äb.step", "Z.Step"}) {
    folder.put(name, "");
  }
  folder.setMode("b.step", 0444);
  EXPECT_EQ(stepFileEntries(folder("")),
            (std::vector<std::u16string>{u".hidden", u"A.STEP", u"a", u"a10", u"a2", u"b",
                                         u"Z.Step", u"Ä", u"äb"}));
  EXPECT_TRUE(stepFileEntries(folder("missing")).empty());
  EXPECT_EQ(placeOfCodes(u"Alpha_Parts_(_)_1_1_4-IS-I-RA+UC"), 15U);
  EXPECT_EQ(placeOfCodes(u"Numb_TODO-NOW+!"), std::u16string_view::npos);
  EXPECT_EQ(placeOfCodes(u"My LIST"), std::u16string_view::npos);
  EXPECT_EQ(pathOfEntry(u"steps", u"A.STEP"),
            u"steps" + std::u16string(1, text::kSeparator) + u"A.STEP.step");
}

TEST(StoredTexts, OneRecordEach) {
  StoredTexts texts;
  texts[0] = u"say \"so\", twice";
  texts[14] = u"two\r\nlines é";
  const std::string bytes = formatStoredTexts(texts);
  EXPECT_TRUE(bytes.starts_with("\"say <WXEQUOTE>so<WXEQUOTE>, twice\"\r\n\"\"\r\n"));
  EXPECT_EQ(parseStoredTexts(bytes), texts);
  EXPECT_EQ(parseStoredTexts(bytes + "\"sixteenth\"\r\n"), texts);
  EXPECT_EQ(parseStoredTexts(""), StoredTexts());
  // What others may write: without quotes, two a line, empty lines, cut off, from Windows.
  const StoredTexts odd = parseStoredTexts("one, \"t,wo\" x\n\n\"\"\r\rf\xE9ur\r\n\"five\r\nof");
  EXPECT_EQ(odd, (StoredTexts{u"one", u"t,wo", u"", u"féur", u"five\r\nof"}));
  // What cannot be read is not empty, because a save would write over it.
  TemporaryFolder folder;
  platform::createFolder(folder("texts.dat"));
  EXPECT_FALSE(readStoredTexts(folder("texts.dat")));
}

}  // namespace

}  // namespace kvrnstep::stepfiles
