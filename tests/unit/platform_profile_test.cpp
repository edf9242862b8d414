#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/profile.h"
#include "platform_temporary_folder.h"

namespace kvrnstep::platform {
namespace {

using namespace std::string_literals;

TEST(ProfileValue, FindsKeys) {
  struct Case {
    std::string bytes;
    std::optional<std::string> value;  ///< of key "Key" in section "Sec"
  };
  const Case cases[] = {
      {"", {}},
      {"[Sec]\r\nKey=v\r\n", "v"},
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
      {"[Sec]\nKey=", ""},
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
    EXPECT_EQ(withProfileValue(c.before, "Sec", "Key", "new"), c.after)
        << testing::PrintToString(c.before);
  }
}

TEST(WithProfileValue, NamesThatCouldNotBeFoundAgainChangeNothing) {
  const std::string bytes = "[Sec]\nKey=v\n";
  EXPECT_EQ(withProfileValue(bytes, "S\nec", "Key", "x"), bytes);
  EXPECT_EQ(withProfileValue(bytes, "Sec\r", "Key", "x"), bytes);
  for (const auto* key : {"K\ney", "Key\r", "K=ey", ";Key", " ;Key", "[Key"}) {
    EXPECT_EQ(withProfileValue(bytes, "Sec", key, "x"), bytes) << key;
  }
}

TEST(WithProfileValue, OddNamesAreFoundAgain) {
  for (const auto* section : {"", " ", "[", "]", "a]b", ";", "=", "\"s\""}) {
    for (const auto* key : {"", " k ", "]", "k]", "'k'", "k;"}) {
      const auto bytes = withProfileValue("[B]\nA=1", section, key, "v");
      EXPECT_EQ(profileValue(bytes, section, key), "v") << section << " and " << key;
      EXPECT_EQ(withProfileValue(bytes, section, key, "v"), bytes);
    }
  }
}

// Kinds of files for which a search that starts over at every line would take minutes.
TEST(Profile, LargeFilesAreReadOnce) {
  constexpr std::size_t kSize = 1 << 20;
  for (const std::string piece : {"\r", "\n", "[\n", "[B]\r", "[Sec\n", "A=1\r", "=", "]"}) {
    std::string bytes = "[B]\n[Sec]\n";
    while (bytes.size() < kSize) bytes += piece;
    const auto changed = withProfileValue(bytes, "Sec", "Key", "v");
    EXPECT_EQ(profileValue(changed, "Sec", "Key"), "v") << testing::PrintToString(piece);
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

TEST(ProfileFile, WritesOrLeavesTheFileAlone) {
  const tests::TemporaryFolder folder;
  EXPECT_TRUE(writePrivateProfileString("Sec", "Key", "1", folder("ini")));
  EXPECT_TRUE(writePrivateProfileString("Sec", "Key", std::string(300, 'v'), folder("ini")));
  EXPECT_EQ(folder.get("ini"), "[Sec]\r\nKey=" + std::string(300, 'v') + "\r\n");

  EXPECT_FALSE(writePrivateProfileString("Sec", "K=y", "1", folder("ini")));
  EXPECT_FALSE(writePrivateProfileString("Sec", "K=y", "1", folder("other")));
  EXPECT_FALSE(writePrivateProfileString("Sec", "Key", "1", folder("missing/ini")));
  EXPECT_FALSE(writePrivateProfileString("Sec", "Key", "1", folder("")));
  folder.setMode("ini", 0444);
  EXPECT_FALSE(writePrivateProfileString("Sec", "Key", "2", folder("ini")));
  EXPECT_EQ(folder.names(), std::set<std::string>{"ini"});
}

}  // namespace
}  // namespace kvrnstep::platform
