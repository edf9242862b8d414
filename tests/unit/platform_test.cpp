#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/profile.h"
#include "temporary_folder.h"

namespace kvrnstep::platform {
namespace {

using namespace std::string_literals;
using Names = std::set<std::string>;

class Files : public testing::Test {
 protected:
  tests::TemporaryFolder folder;
};

TEST_F(Files, AreReadWhole) {
  folder.put("file", "a\0\r\n\xFF"s);
  folder.put("empty", "");
  EXPECT_EQ(readFile(folder("file")), "a\0\r\n\xFF"s);
  EXPECT_EQ(readFile(folder("file"), 5), "a\0\r\n\xFF"s);
  EXPECT_EQ(readFile(folder("file"), 4), std::nullopt);
  EXPECT_TRUE(replaceFile(folder("large"), std::string(kLargestFile, 'x')) &&
              readFile(folder("large")));
  EXPECT_FALSE(replaceFile(folder("large"), std::string(kLargestFile + 1, 'x')));
  std::filesystem::resize_file(folder.path("large"), kLargestFile + 1);
  EXPECT_FALSE(readFile(folder("large")));
  EXPECT_EQ(readFile(folder("empty")), "");
  for (const auto& none : {folder("missing"), folder(""), folder("file") + u'\0' + u"x", u""s}) {
    EXPECT_EQ(readFile(none), std::nullopt);
  }
}

TEST_F(Files, AreMadeWhereThereIsRoom) {
  folder.put("file", "kept");
  for (const auto* name : {"file", "new"}) EXPECT_TRUE(createEmptyFile(folder(name)));
  for (const auto* name : {"missing/new", ""}) EXPECT_FALSE(createEmptyFile(folder(name)));
  EXPECT_EQ(folder.get("file"), "kept");

  EXPECT_FALSE(createFolder(folder("a/b")));
  for (const auto* name : {"a", "a/b"}) EXPECT_TRUE(createFolder(folder(name)));
  for (const auto* name : {"a", "file"}) EXPECT_FALSE(createFolder(folder(name)));
  for (const auto* there : {"file", "new", "a", "a/b/", ""}) EXPECT_TRUE(pathExists(folder(there)));
  for (const auto* none : {"missing", "file/below"}) EXPECT_FALSE(pathExists(folder(none)));
  EXPECT_FALSE(pathExists(u""));
}

TEST_F(Files, AreListedAndDeleted) {
  for (const auto* name : {"file", "kept", "\xC3\xA9", "\xE4\xB8\x80.step"}) folder.put(name, "");
  folder.setMode("kept", 0444);
  ASSERT_TRUE(createFolder(folder("folder")));
  const auto names = filesIn(folder(""));
  EXPECT_EQ(std::set(names.begin(), names.end()),
            (std::set<std::u16string>{u"file", u"kept", u"é", u"\u4E00.step"}));
  EXPECT_EQ(names.size(), 4U);
  for (const auto& none : {folder("missing"), folder("file"), u""s}) {
    EXPECT_TRUE(filesIn(none).empty());
  }
  for (const auto* name : {"kept", "folder", "missing", ""}) EXPECT_FALSE(deleteFile(folder(name)));
  for (const auto* name : {"file", "\xC3\xA9"}) EXPECT_TRUE(deleteFile(folder(name)));
  EXPECT_EQ(folder.names(), (Names{"folder", "kept", "\xE4\xB8\x80.step"}));
  folder.setMode("kept", 0644);
}

TEST_F(Files, AreReplacedWhole) {
  for (const auto& bytes : {""s, "a\0\r\n\xFF"s, std::string(3'000'000, 'x'), "short"s}) {
    ASSERT_TRUE(replaceFile(folder("file"), bytes));
    ASSERT_EQ(folder.get("file"), bytes);
  }
  // The same again is not written.
  const auto path = folder.path("file");
  std::filesystem::last_write_time(
      path, std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
  const auto before = std::filesystem::last_write_time(path);
  EXPECT_TRUE(replaceFile(folder("file"), "short"));
  EXPECT_EQ(std::filesystem::last_write_time(path), before);
  const std::string longest(240, 'n');
  for (const auto* bytes : {"one", "two"}) EXPECT_TRUE(replaceFile(folder(longest), bytes));
  EXPECT_EQ(folder.get(longest), "two");
  EXPECT_FALSE(replaceFile(folder(std::string(256, 'n')), "x"));
  EXPECT_EQ(folder.names(), (Names{"file", longest}));
}

TEST_F(Files, AreLeftAloneWhereTheyMayNotBeReplaced) {
  folder.put("file", "old");
  folder.setMode("file", 0444);
  ASSERT_TRUE(createFolder(folder("sub")));
  for (const auto* name : {"file", "sub", "sub/", "new/", "file/new", "missing/new", ""}) {
    EXPECT_FALSE(replaceFile(folder(name), "x")) << name;
  }
  EXPECT_FALSE(replaceFile(u"", "x"));
  EXPECT_FALSE(replaceFile(folder("new") + u'\0' + u"x", "x"));
  EXPECT_EQ(folder.get("file"), "old");
  EXPECT_EQ(folder.names(), (Names{"file", "sub"}));
  folder.setMode("file", 0644);
}

TEST_F(Files, AreChangedAnewWhereOthersChangedThemMeanwhile) {
  const auto change = [this](const char* name, const char* by) {
    return changeFile(folder(name), [&](std::optional<std::string_view> bytes) {
      if (bytes != "theirs") folder.put(name, by);
      return std::string(bytes.value_or("none")) + " and ours";
    });
  };
  folder.put("file", "old");
  for (const auto* name : {"file", "new"}) {
    EXPECT_TRUE(change(name, "theirs"));
    EXPECT_EQ(folder.get(name), "theirs and ours");
    EXPECT_FALSE(saveNewFile(folder(name), "x"));
  }
  EXPECT_EQ(folder.names(), (Names{"file", "new"}));
}

TEST(ProfileValue, FindsKeys) {
  struct Case {
    std::string bytes;
    std::optional<std::string> value;  ///< of key "Key" in section "Sec"
  };
  const Case cases[] = {
      {"", {}},
      {"[Sec]\nKey=v", "v"},
      {"[Sec]\rKey=v\rB=w", "v"},
      {"\xEF\xBB\xBF[Sec]\r\nKey=v", "v"},
      {"x\xEF\xBB\xBF[Sec]\r\nKey=v", {}},
      {"[sEC]\nkEY=v", "v"},
      {"Key=v\n[Sec]\n", {}},         // before the first section
      {"[Sec]\n[Other]\nKey=v", {}},  // of another one
      {"[Other]\nKey=o\n[Sec]\nKey=v", "v"},
      {"[Sec]\nKey=1\nKey=2", "1"},            // the first counts
      {"[Sec]\nA=1\n[B]\n[Sec]\nKey=2", {}},   // of the sections, too
      {"[Sec]\n;Key=1\n ;Key=2\nKey=3", "3"},  // comments
      {"[Sec]\nKey\nKey=v", "v"},              // no key without a sign
      {"[Sec]\n \tKey \t= \tv w \t\n", "v w"},
      {"[Sec]\nKey=  \n", ""},
      {"[Sec]\nKey=a=b", "a=b"},
      {"[Sec]\nKey=v ; no comment", "v ; no comment"},
      {"[Sec]\nKey=\" v \"", " v "},
      {"[Sec]\nKey= ' v ' ", " v "},
      {"[Sec]\nKey=\"\"v\"\"", "\"v\""},  // one pair only
      {"[Sec]\nKey=\"\"", ""},
      {"[Sec]\nKey=\"", "\""},
      {"[Sec]\nKey=\"v'", "\"v'"},
      {"[Sec]\nKey=a\"b\"", "a\"b\""},
      {"[Sec]\nKey=v\0w"s, "v\0w"s},
      {"  [Sec]\nKey=v", "v"},
      {"[Sec] trailing\nKey=v", "v"},
      {"[Sec\nKey=v", {}},
      {"[ Sec ]\nKey=v", {}},
      {"[Sec]]\nKey=v", {}},
      {"[Sec]\n[Key=v", {}},
      {"[Sec]\n[Key=]\nKey=v", {}},  // a section named "Key="
  };
  for (const auto& c : cases) {
    const auto value = profileValue(c.bytes, "Sec", "Key");
    EXPECT_EQ(value ? std::optional(std::string(*value)) : std::nullopt, c.value)
        << testing::PrintToString(c.bytes);
  }
  EXPECT_EQ(profileValue("[a]b]\nKey=v", "a]b", " Key\t"), "v");
  EXPECT_EQ(profileValue("[]\n=v", "", ""), "v");
  EXPECT_EQ(profileValue("[GR\xD6\xDF\x45]\nKey=v", "Größe", "Key"), "v") << "of another system";
  EXPECT_EQ(profileValue("[Sec]\n;Key=v", "Sec", ";Key"), std::nullopt);
}

std::string withKeys(const std::string& bytes, const char* section,
                     const std::vector<ProfileKey>& keys) {
  return withProfileValues(bytes, section, keys);
}

TEST(WithProfileValue, ChangesOneLine) {
  struct Case {
    std::string before, after;  ///< key "Key" in section "Sec" gets "new"
  };
  const Case cases[] = {
      {"", "[Sec]\r\nKey=new\r\n"},
      {"\xEF\xBB\xBF", "\xEF\xBB\xBF[Sec]\r\nKey=new\r\n"},
      {"[Sec]\nKey=old\nB=1", "[Sec]\nKey=new\nB=1"},
      {"[Sec]\r\n\tkEY \t= 'old' \r\n", "[Sec]\r\n\tkEY \t=new\r\n"},
      {"[Sec]\nKey=old", "[Sec]\nKey=new"},
      {"[Sec]\nKey=1\nKey=2\n[sec]\nKey=3\n", "[Sec]\nKey=new\nKey=2\n[sec]\nKey=3\n"},
      // added to the section
      {"[Sec]\n", "[Sec]\nKey=new\n"},
      {"[Sec]", "[Sec]\r\nKey=new"},
      {"[Sec]\rA=1", "[Sec]\rA=1\rKey=new"},
      {"[Sec]\r\nA=1\n\r\n \t\n[B]\r\n", "[Sec]\r\nA=1\nKey=new\n\r\n \t\n[B]\r\n"},
      {"[Sec]\nA=1\n; last\n\n", "[Sec]\nA=1\n; last\nKey=new\n\n"},
      {"[Sec]\n\n  ", "[Sec]\nKey=new\n\n  "},
      {"[Sec]\n[B]\n[Sec]\nKey=2\n", "[Sec]\nKey=new\n[B]\n[Sec]\nKey=2\n"},
      // added with its section
      {"[B]\nKey=1\n", "[B]\nKey=1\n[Sec]\nKey=new\n"},
      {"[B]\nKey=1", "[B]\nKey=1\n[Sec]\nKey=new"},
      {"[B]\rKey=1\r", "[B]\rKey=1\r[Sec]\rKey=new\r"},
      {"[B]\n\n\n", "[B]\n\n\n[Sec]\nKey=new\n"},
      {"\0\xFF"s, "\0\xFF\r\n[Sec]\r\nKey=new"s},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(withKeys(c.before, "Sec", {{"Key", "new"}}), c.after)
        << testing::PrintToString(c.before);
  }
}

TEST(WithProfileValue, SetsSeveralAtOnce) {
  const std::vector<ProfileKey> keys{{"A", "2"}, {"Key", "3"}, {"=", ""}, {"Z", "4"}};
  EXPECT_EQ(withKeys("[B]\r \t[Sec]\rKey=1", "Sec", keys), "[B]\r \t[Sec]\rKey=3\rA=2\rZ=4");
  EXPECT_EQ(withKeys("\xEF\xBB\xBF[B]", "B", keys), "\xEF\xBB\xBF[B]\r\nA=2\r\nKey=3\r\nZ=4");
  EXPECT_EQ(withKeys("", "B", keys), "[B]\r\nA=2\r\nKey=3\r\nZ=4\r\n");
}

TEST(WithProfileValue, NamesThatCouldNotBeFoundAgainChangeNothing) {
  const std::string bytes = "[Sec]\nKey=v\n";
  EXPECT_EQ(withKeys(bytes, "S\nec", {{"Key", "x"}}), bytes);
  EXPECT_EQ(withKeys(bytes, "Sec\r", {{"Key", "x"}}), bytes);
  for (const auto* key : {"K\ney", "Key\r", "K=ey", ";Key", " ;Key", "[Key"}) {
    EXPECT_EQ(withKeys(bytes, "Sec", {{key, "x"}}), bytes) << key;
  }
}

TEST(ProfileFile, Reads) {
  const tests::TemporaryFolder folder;
  folder.put("ini", "[Sec]\nKey=" + std::string(300, 'v') + "\nNul=a\0b\nEmpty=\n"s);
  const auto read = [&](std::string_view key) {
    return getPrivateProfileString("sec", key, "default", folder("ini"));
  };
  EXPECT_EQ(read("key"), std::string(300, 'v'));
  EXPECT_EQ(read("Nul"), "a");
  EXPECT_EQ(read("Empty"), "");
  EXPECT_EQ(read("Missing"), "default");
  EXPECT_EQ(getPrivateProfileString("Sec", "Key", "d", folder("missing")), "d");
  EXPECT_EQ(getPrivateProfileString("Sec", "Key", "d", folder("")), "d");
}

TEST(ProfileFile, IsLeftAloneWhereItCannotBeWritten) {
  const tests::TemporaryFolder folder;
  folder.put("ini", "");
  for (const auto* name : {"ini", "other"}) {
    EXPECT_FALSE(writePrivateProfileStrings("Sec", {{"K=y", "1"}}, folder(name)));
  }
  for (const auto* name : {"missing/ini", ""}) {
    EXPECT_FALSE(writePrivateProfileStrings("Sec", {{"Key", "1"}}, folder(name)));
  }
  folder.setMode("ini", 0444);
  EXPECT_FALSE(writePrivateProfileStrings("Sec", {{"Key", "2"}}, folder("ini")));
  folder.setMode("ini", 0644);
  EXPECT_EQ(folder.names(), std::set<std::string>{"ini"});
}

}  // namespace
}  // namespace kvrnstep::platform
