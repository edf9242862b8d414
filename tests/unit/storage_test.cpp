#include <gtest/gtest.h>

#include <optional>

#include "storage/list_file.h"
#include "storage/settings_store.h"
#include "storage/text_file.h"
#include "temporary_folder.h"
#include "text/codepage.h"

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
  // What is not read tells the encoding, too.
  EXPECT_EQ(parseList("\xC3\xA9\r\n" + full + "\xE9").entries.front(), u"Ã©");
}

TEST_F(ListFile, IsChangedAsTheDialogsChangeIt) {
  const std::string full = [] {
    std::string lines;
    for (int i = 0; i < 32'001; ++i) lines += "A\r\n";
    return lines;
  }();
  struct Case {
    std::string before;
    Entries edited;
    std::optional<std::string> meanwhile;  ///< what another dialog makes of it; nothing: it goes
    std::string after;
  };
  const std::string e = text::toBytes(u"é");
  const Case cases[] = {
      {"A\r\n\r\nB", {u"A", u"B"}, "A\r\n\r\nB", "A\r\n\r\nB"},
      {"caf\xE9\r\nA", {u"café", u"A"}, "caf\xE9\r\nA\r\nB", "caf\xE9\r\nA\r\nB"},
      {"A\r\n\r\nB", {u"B", u"", u"é"}, "A\r\n\r\nB", "B\r\n\r\n" + e + "\r\n"},
      {"A\r\nB\r\n", {}, "A\r\nB\r\n", ""},
      {"A\r\nB\r\nC", {u"C", u"B", u"new"}, "A\r\nB\r\nnew\r\nother", "B\r\nnew\r\nother\r\n"},
      {"A\r\nA\r\nB", {u"A", u"B"}, "A\r\nA\r\nA\r\nB", "A\r\nB\r\nA\r\n"},
      {"A\r\nB", {u"A", u"B", u"C"}, std::nullopt, "A\r\nB\r\nC\r\n"},
      {full + "\n\r\xC3\xA9", {u"B"}, full + "\n\r\xC3\xA9", "B\r\n\n\r" + e},
      {full + "\xE9\x80\xC3\xA9", {u"é"}, full + "\xE9\x80\xC3\xA9", "\xE9\r\n\xE9\x80\xC3\xA9"},
      {full + "\r\xE9", {u"Ω"}, full + "\r\xE9", "\xCE\xA9\r\n\r\xC3\xA9"},
  };
  for (const auto& c : cases) {
    folder.put("list", c.before);
    storage::ListFile file(folder("list"));
    Target target{{u"before"}};
    LoadSaveListFile(target, false, file);
    EXPECT_EQ(target.entries, parseList(c.before).entries);
    target.entries = c.edited;
    std::filesystem::remove(folder.path("list"));
    if (c.meanwhile) folder.put("list", *c.meanwhile);
    LoadSaveListFile(target, true, file);
    EXPECT_EQ(folder.get("list"), c.after);
    EXPECT_EQ(target.entries, c.edited);
  }
}

TEST_F(ListFile, LoadingEmptiesTheTargetAndMakesAMissingFile) {
  for (const auto* name : {"list", "missing/list", ""}) {
    Target target{{u"before"}};
    storage::ListFile file(folder(name));
    LoadSaveListFile(target, false, file);
    EXPECT_EQ(target.entries, Entries{});
    LoadSaveListFile(target, true, file);
  }
  EXPECT_EQ(folder.names(), std::set<std::string>{"list"});
  EXPECT_EQ(folder.get("list"), "");
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
  EXPECT_EQ(store(u"first\r\n[Other]\nPrefix=x"), u"first");
  EXPECT_EQ(folder.get("ini"), text::toBytes(u"[Größe]\r\nPrefix=first\r\n"));
  modSecns::WriteIniKey(u"S\0x"s, u"K\0y"s, u"v\0z"s, folder("short"));
  EXPECT_EQ(folder.get("short"), "[S]\r\nK=v\r\n");
}

TEST_F(Settings, OfAFileFromAnotherSystem) {
  for (const std::string section : {"[Sec]",
                                    "[S\xC3\xA9"
                                    "c]",
                                    "[S\xE9"
                                    "c]"}) {
    const std::string rest = "; \xC3\xA9\r\n" + section + "\r\nA=caf\xE9\r\nC=a\r\nB=";
    folder.put("ini", rest + "\xC3\xA9\r\n");
    const std::u16string_view name = section == "[Sec]" ? u"Sec" : u"Séc";
    const auto read = [&](std::u16string_view key) {
      return modSecns::ReadIniKey(name, key, u"", folder("ini"));
    };
    EXPECT_EQ(read(u"A") + read(u"B") + read(u"C"), u"cafééa") << section;
    for (const auto* value : {u"ü", u"\u4E00 ü"}) {
      modSecns::WriteIniKey(name, u"B", value, folder("ini"));
      EXPECT_EQ(folder.get("ini"), rest + text::toBytes(value) + "\r\n");
      EXPECT_EQ(read(u"B"), value);
    }
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

}  // namespace
}  // namespace kvrnstep::storage
