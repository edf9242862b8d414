#include <gtest/gtest.h>

#include "platform_temporary_folder.h"
#include "storage/list_file.h"
#include "storage/settings_store.h"
#include "storage/text_file.h"

namespace kvrnstep::storage {
namespace {

using namespace std::string_literals;
using Entries = std::vector<std::u16string>;

class Storage : public testing::Test {
 protected:
  tests::TemporaryFolder folder;
};
using ListFile = Storage;
using TextFile = Storage;
using Settings = Storage;

struct Target {
  Entries entries;

  void Clear() { entries.clear(); }
  void AddItem(std::u16string text) { entries.push_back(std::move(text)); }
  [[nodiscard]] int ListCount() const { return static_cast<int>(entries.size()); }
  [[nodiscard]] const std::u16string& List(int index) const {
    return entries[static_cast<std::size_t>(index)];
  }
};

TEST(List, LinesAndEntries) {
  struct Case {
    std::string bytes;
    Entries entries;
  };
  const Case cases[] = {
      {"", {}},
      {"A\r\n\r\nB\r\n", {u"A", u"B"}},
      {"A\r\nB", {u"A", u"B"}},
      {"A\rB\r\r\nC\r", {u"A", u"B", u"C"}},
      {"A\nB\n", {u"A\nB\n"}},
      {"A\r\n\nB\r\n", {u"A", u"\nB"}},
      {"\r\n  \r\n\t\r\n", {u"  ", u"\t"}},
      {"\r\r\r", {}},
      {"a\0b\r\n"s, {u"a\0b"s}},
      {"\xEF\xBB\xBF"
       "A\r\n",
       {u"\uFEFFA"}},
      {"\xC3\xA9\r\n\xE2\x82\xAC", {u"é", u"€"}},
      {"\xC3\xA9\r\n\xE9", {u"Ã©", u"é"}},  // one byte decides for the whole file
  };
  for (const auto& c : cases) EXPECT_EQ(parseList(c.bytes).entries, c.entries) << c.bytes;
}

TEST(List, EmptyLinesCountAmongTheMostThatAreRead) {
  std::string full;
  for (int i = 0; i < 40'000; ++i) full += "A\r\n";
  EXPECT_EQ(parseList(full).entries.size(), 32'001U);
  EXPECT_EQ(parseList("\r\n\r\n" + full).entries.size(), 31'999U);
  EXPECT_EQ(parseList(full.substr(0, 96'000) + "B\r\nC").entries.back(), u"B");
  EXPECT_EQ(parseList(full + "\xE9").entries.size(), 32'001U);
  // What is not read tells the encoding, too.
  EXPECT_EQ(parseList("\xC3\xA9\r\n" + full + "\xE9").entries.front(), u"Ã©");
}

TEST_F(ListFile, LoadsAndSaves) {
  folder.put("list", "A\r\n\r\nB");
  Target target{{u"before"}};
  LoadSaveListFile(target, false, folder("list"));
  EXPECT_EQ(target.entries, (Entries{u"A", u"B"}));
  target.entries = {u"A", u"", u"é"};
  LoadSaveListFile(target, true, folder("list"));
  EXPECT_EQ(folder.get("list"), "A\r\n\r\n" + text::toBytes(u"é") + "\r\n");
  EXPECT_EQ(target.ListCount(), 3);
  target.Clear();
  LoadSaveListFile(target, true, folder("list"));
  EXPECT_EQ(folder.get("list"), "");
}

TEST_F(ListFile, TellsWhetherTheFileWasReadToItsEnd) {
  std::string lines(3 * storage::kMostListLines, 'A');
  for (std::size_t i = 1; i < lines.size(); i += 3) lines.replace(i, 2, "\r\n");
  Target target;
  folder.put("list", lines);
  EXPECT_TRUE(LoadSaveListFile(target, false, folder("list")));
  folder.put("list", lines + "B");
  EXPECT_FALSE(LoadSaveListFile(target, false, folder("list")));
  EXPECT_EQ(target.entries.size(), 32'001U);
}

TEST_F(ListFile, LoadingCreatesAMissingFile) {
  Target target{{u"before"}};
  LoadSaveListFile(target, false, folder("list"));
  EXPECT_EQ(target.entries, Entries{});
  EXPECT_TRUE(FileExists(folder("list")));
  EXPECT_EQ(folder.get("list"), "");
}

TEST_F(ListFile, LoadingWhatCannotBeReadEmptiesTheTarget) {
  for (const auto* name : {"missing/list", ""}) {
    Target target{{u"before"}};
    EXPECT_FALSE(LoadSaveListFile(target, false, folder(name)));
    EXPECT_EQ(target.entries, Entries{});
  }
  EXPECT_TRUE(folder.names().empty());
}

TEST_F(ListFile, SavingWhatCannotBeWrittenChangesNothing) {
  folder.put("list", "old\r\n");
  folder.setMode("list", 0444);
  Target target{{u"new"}};
  for (const auto* name : {"list", "missing/list", ""}) {
    EXPECT_FALSE(LoadSaveListFile(target, true, folder(name)));
  }
  EXPECT_EQ(folder.get("list"), "old\r\n");
  EXPECT_EQ(folder.names(), std::set<std::string>{"list"});
  EXPECT_EQ(target.entries, Entries{u"new"});
}

TEST_F(TextFile, TextsComeBack) {
  const std::u16string texts[] = {u"",
                                  u"a",
                                  u"a\r\n",
                                  u"\r\n\r\n",
                                  u"a\r",
                                  u"\n",
                                  u"\"é€😀\"\r\nb",
                                  u"\uFEFFa",
                                  u"a\0b"s,
                                  std::u16string{0xD83D, u'a', 0xDE00}};
  for (const auto& text : texts) {
    EXPECT_TRUE(WriteTextFile(folder("text"), text));
    EXPECT_EQ(ReadTextFile(folder("text")), text);
  }
  EXPECT_TRUE(WriteTextFile(folder("text"), u"é\r\n"));
  EXPECT_EQ(folder.get("text"), text::toBytes(u"é") + "\r\n\r\n");
}

TEST_F(TextFile, TakesOnePairOffTheEndAndNothingElse) {
  const std::pair<std::string, std::u16string> cases[] = {
      {"a", u"a"}, {"a\r", u"a\r"},         {"a\n", u"a\n"},    {"a\n\r", u"a\n\r"}, {"\r\n", u""},
      {"", u""},   {"a\r\n\r\n", u"a\r\n"}, {"\xE9\r\n", u"é"}, {"\r\na", u"\r\na"}};
  for (const auto& [bytes, text] : cases) {
    folder.put("text", bytes);
    EXPECT_EQ(ReadTextFile(folder("text")), text);
  }
}

TEST_F(TextFile, FailuresReadEmptyAndWriteNothing) {
  folder.put("text", "old");
  folder.setMode("text", 0444);
  EXPECT_FALSE(WriteTextFile(folder("text"), u"new"));
  EXPECT_FALSE(WriteTextFile(folder("missing/text"), u"new"));
  EXPECT_FALSE(WriteTextFile(folder(""), u"new"));
  EXPECT_EQ(ReadTextFile(folder("text")), u"old");
  EXPECT_EQ(ReadTextFile(folder("missing")), u"");
  EXPECT_EQ(ReadTextFile(folder("")), u"");
}

TEST_F(TextFile, FoldersExistAsFilesDo) {
  folder.put("text", "");
  for (const auto exists : {FileExists, PathExists}) {
    EXPECT_TRUE(exists(folder("text")));
    EXPECT_TRUE(exists(folder("")));
    EXPECT_FALSE(exists(folder("other")));
    EXPECT_FALSE(exists(folder("text/below")));
    EXPECT_FALSE(exists(u""));
  }
}

TEST_F(Settings, KeysComeBack) {
  const auto store = [&](std::u16string_view value) {
    modSecns::WriteIniKey(u"Größe", u"Prefix", value, folder("ini"));
    return modSecns::ReadIniKey(u"Größe", u"PREFIX", u"default", folder("ini"));
  };
  EXPECT_EQ(modSecns::ReadIniKey(u"Größe", u"Prefix", u"défaut", folder("ini")), u"défaut");
  EXPECT_EQ(store(u"Step {STEP_#}"), u"Step {STEP_#}");
  EXPECT_EQ(store(u""), u"");
  EXPECT_EQ(store(u" é€😀 "), u"é€😀");
  EXPECT_EQ(store(u"\"a\""), u"a");
  EXPECT_EQ(store(u"a\0b"s), u"a");
  EXPECT_EQ(store(u"first\r\nsecond"), u"first");
}

TEST_F(Settings, ValuesOfAFileFromAnotherSystem) {
  const std::string rest = "; \xC3\xA9\r\n[Sec]\r\nA=caf\xE9\r\nC=a\r\nB=";
  folder.put("ini", rest + "\xC3\xA9\r\n");
  const auto read = [&](std::u16string_view key) {
    return modSecns::ReadIniKey(u"Sec", key, u"", folder("ini"));
  };
  EXPECT_EQ(read(u"A"), u"café");
  EXPECT_EQ(read(u"B"), u"é");
  EXPECT_EQ(read(u"C"), u"a");
  for (const auto* value : {u"ü", u"\u4E00 ü"}) {
    modSecns::WriteIniKey(u"Sec", u"B", value, folder("ini"));
    EXPECT_EQ(folder.get("ini"), rest + text::toBytes(value) + "\r\n");
    EXPECT_EQ(read(u"B"), value);
  }
}

TEST_F(Settings, LongValuesAreCutWhenRead) {
  const auto store = [&](const std::u16string& value) {
    modSecns::WriteIniKey(u"S", u"K", value, folder("ini"));
    const auto asDefault = modSecns::ReadIniKey(u"S", u"missing", value, folder("ini"));
    auto read = modSecns::ReadIniKey(u"S", u"K", u"", folder("ini"));
    EXPECT_EQ(read, asDefault);
    return read;
  };
  const std::u16string a253(253, u'a');
  EXPECT_EQ(store(std::u16string(254, u'é')), std::u16string(254, u'é'));
  EXPECT_EQ(store(std::u16string(300, u'é')), std::u16string(254, u'é'));
  EXPECT_EQ(folder.get("ini").size(),
            std::string("[S]\r\nK=\r\n").size() + text::toBytes(std::u16string(300, u'é')).size());
  EXPECT_EQ(store(a253 + u"😀"), a253);
  EXPECT_EQ(store(a253.substr(1) + u"😀b"), a253.substr(1) + u"😀");
  EXPECT_EQ(store(a253 + std::u16string{0xD800, u'b'}), a253 + char16_t{0xD800});
}

TEST_F(Settings, AFileThatCannotBeWrittenIsLeftAlone) {
  folder.put("ini", "[S]\r\nK=1\r\n");
  folder.setMode("ini", 0444);
  modSecns::WriteIniKey(u"S", u"K", u"2", folder("ini"));
  modSecns::WriteIniKey(u"S", u"K", u"2", folder("missing/ini"));
  EXPECT_EQ(modSecns::ReadIniKey(u"S", u"K", u"", folder("ini")), u"1");
  EXPECT_EQ(modSecns::ReadIniKey(u"S", u"K", u"0", folder("")), u"0");
  EXPECT_EQ(folder.names(), std::set<std::string>{"ini"});
}

}  // namespace
}  // namespace kvrnstep::storage
