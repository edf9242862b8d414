#include <gtest/gtest.h>
#include <windows.h>

#include "platform/files.h"
#include "platform/module.h"
#include "platform_temporary_folder.h"
#include "text/windows/wide.h"

namespace kvrnstep::platform {
namespace {

using namespace std::string_literals;
using Names = std::set<std::string>;

class Files : public testing::Test {
 protected:
  DWORD attributes(const std::string& name) {
    return ::GetFileAttributesW(text::wide(folder(name)));
  }
  void setAttributes(const std::string& name, DWORD bits) {
    ASSERT_TRUE(::SetFileAttributesW(text::wide(folder(name)), bits));
  }

  tests::TemporaryFolder folder;
};

TEST_F(Files, ReadsFilesOnDiskOnly) {
  folder.put("file", "a\0\r\n\xFF"s);
  folder.put("empty", "");
  EXPECT_EQ(readFile(folder("file")), "a\0\r\n\xFF"s);
  EXPECT_EQ(readFile(folder("file"), 4), std::nullopt);
  EXPECT_EQ(readFile(folder("empty")), "");
  for (const auto& none : {folder("missing"), folder(""), std::u16string(u"NUL"), std::u16string(),
                           folder("file") + u'\0' + u"x"}) {
    EXPECT_EQ(readFile(none), std::nullopt) << text::toUtf8(none);
  }
}

TEST_F(Files, WhatIsThereAndWhatCanBeMade) {
  folder.put("file", "kept");
  EXPECT_TRUE(createEmptyFile(folder("file")));
  EXPECT_TRUE(createEmptyFile(folder("new")));
  EXPECT_FALSE(createEmptyFile(folder("missing/new")));
  EXPECT_EQ(folder.get("file"), "kept");

  EXPECT_FALSE(createFolder(folder("a/b")));
  EXPECT_TRUE(createFolder(folder("a")));
  EXPECT_TRUE(createFolder(folder("a\\b")));
  EXPECT_FALSE(createFolder(folder("a")));
  EXPECT_FALSE(createFolder(folder("file")));
  for (const auto* there : {"file", "new", "a", "a/b/"}) EXPECT_TRUE(pathExists(folder(there)));
  for (const auto* none : {"missing", "file/below"}) EXPECT_FALSE(pathExists(folder(none)));
  EXPECT_FALSE(pathExists(u""));
}

TEST_F(Files, ListsFilesOfAllKindsByTheirLongNames) {
  for (const auto* name : {"plain", "read only", "hidden", "system.step", "\xE4\xB8\x80.step"}) {
    folder.put(name, "");
  }
  ASSERT_TRUE(createFolder(folder("sub")));
  setAttributes("read only", FILE_ATTRIBUTE_READONLY);
  setAttributes("hidden", FILE_ATTRIBUTE_HIDDEN);
  setAttributes("system.step", FILE_ATTRIBUTE_SYSTEM);
  const auto names = filesIn(folder(""));
  EXPECT_EQ(std::set(names.begin(), names.end()),
            (std::set<std::u16string>{u"plain", u"read only", u"hidden", u"system.step",
                                      u"\u4E00.step"}));
  EXPECT_TRUE(filesIn(folder("missing")).empty());
  EXPECT_TRUE(filesIn(folder("plain")).empty());
  EXPECT_TRUE(filesIn(u"").empty());
}

TEST_F(Files, DeletesFilesThatMayBeDeleted) {
  folder.put("file", "");
  folder.put("kept", "");
  setAttributes("kept", FILE_ATTRIBUTE_READONLY);
  EXPECT_TRUE(deleteFile(folder("file")));
  EXPECT_FALSE(deleteFile(folder("file")));
  EXPECT_FALSE(deleteFile(folder("kept")));
  EXPECT_FALSE(deleteFile(folder("")));
  EXPECT_EQ(folder.names(), Names{"kept"});
  setAttributes("kept", FILE_ATTRIBUTE_NORMAL);
}

TEST_F(Files, ReplacesContentsAndKeepsAttributes) {
  for (const auto& bytes : {""s, "a\0\r\n\xFF"s, std::string(3'000'000, 'x'), "short"s}) {
    ASSERT_TRUE(replaceFile(folder("file"), bytes));
    ASSERT_EQ(folder.get("file"), bytes);
  }
  setAttributes("file", FILE_ATTRIBUTE_HIDDEN);
  EXPECT_TRUE(replaceFile(folder("file"), "new"));
  EXPECT_NE(attributes("file") & FILE_ATTRIBUTE_HIDDEN, 0U);
  setAttributes("file", FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(folder.get("file"), "new");
  EXPECT_EQ(folder.names(), Names{"file"});
}

TEST_F(Files, LeavesAloneWhatMayNotBeReplaced) {
  folder.put("file", "old");
  folder.put("used", "old");
  ASSERT_TRUE(createFolder(folder("sub")));
  setAttributes("file", FILE_ATTRIBUTE_READONLY);
  const HANDLE used = ::CreateFileW(text::wide(folder("used")), GENERIC_READ, FILE_SHARE_READ,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(used, INVALID_HANDLE_VALUE);
  for (const auto* name : {"file", "used", "sub", "missing/new", ""}) {
    EXPECT_FALSE(replaceFile(folder(name), "x")) << name;
  }
  EXPECT_FALSE(replaceFile(u"", "x"));
  EXPECT_FALSE(replaceFile(u"NUL", "x"));
  ::CloseHandle(used);
  EXPECT_EQ(folder.get("file"), "old");
  EXPECT_EQ(folder.get("used"), "old");
  EXPECT_EQ(folder.names(), (Names{"file", "sub", "used"}));
  setAttributes("file", FILE_ATTRIBUTE_NORMAL);
}

TEST_F(Files, PathsLongerThanTheUsualLimit) {
  std::u16string deep = folder("");
  while (deep.size() < 600) {
    deep += u"\\" + std::u16string(100, u'd');
    ASSERT_TRUE(createFolder(deep));
  }
  EXPECT_TRUE(replaceFile(deep + u"\\file", "one"));
  EXPECT_TRUE(replaceFile(deep + u"/file", "two"));
  EXPECT_EQ(readFile(deep + u"\\file"), "two");
  EXPECT_EQ(filesIn(deep), std::vector<std::u16string>{u"file"});
  EXPECT_TRUE(deleteFile(deep + u"\\file"));
}

TEST(Module, FolderIsThatOfTheLoadedFile) {
  std::u16string program(MAX_PATH, u'\0');
  program.resize(::GetModuleFileNameW(nullptr, text::wide(program.data()), MAX_PATH));
  EXPECT_EQ(moduleFolder(), program.substr(0, program.rfind(u'\\')));
}

}  // namespace
}  // namespace kvrnstep::platform
