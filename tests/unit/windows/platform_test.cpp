#include <gtest/gtest.h>
#include <windows.h>

#include "platform/files.h"
#include "platform/module.h"
#include "platform/native_files.h"
#include "platform/profile.h"
#include "temporary_folder.h"
#include "text/codepage.h"
#include "text/windows/ansi.h"
#include "text/windows/wide.h"

namespace kvrnstep::platform {
namespace {

class WindowsFiles : public testing::Test {
 protected:
  DWORD attributes(const char* name) { return ::GetFileAttributesW(text::wide(folder(name))); }
  void setAttributes(const char* name, DWORD bits) {
    ASSERT_TRUE(::SetFileAttributesW(text::wide(folder(name)), bits));
  }

  tests::TemporaryFolder folder;
};

TEST_F(WindowsFiles, OfAllKindsAreListedAndKeepTheirKind) {
  for (const auto* name : {"hidden", "system.step"}) folder.put(name, "old");
  setAttributes("hidden", FILE_ATTRIBUTE_HIDDEN);
  setAttributes("system.step", FILE_ATTRIBUTE_SYSTEM);
  const auto names = filesIn(folder(""));
  EXPECT_EQ(std::set(names.begin(), names.end()),
            (std::set<std::u16string>{u"hidden", u"system.step"}));
  EXPECT_TRUE(replaceFile(folder("hidden"), "new"));
  EXPECT_NE(attributes("hidden") & FILE_ATTRIBUTE_HIDDEN, 0U);
  setAttributes("hidden", FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(folder.get("hidden"), "new");
}

TEST_F(WindowsFiles, InUseOrNoneAreLeftAlone) {
  folder.put("used", "old");
  const HANDLE used = ::CreateFileW(text::wide(folder("used")), GENERIC_READ, FILE_SHARE_READ,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(used, INVALID_HANDLE_VALUE);
  EXPECT_FALSE(replaceFile(folder("used"), "x"));
  EXPECT_FALSE(replaceFile(u"NUL", "x"));
  EXPECT_EQ(readFile(u"NUL"), std::nullopt);
  ::CloseHandle(used);
  EXPECT_EQ(folder.get("used"), "old");
  EXPECT_EQ(folder.names(), std::set<std::string>{"used"});
}

// What this program calls the system's functions through.
#ifdef _WIN64
#define IMPORTED(name, bytes) __asm__("__imp_" #name)
#else
#define IMPORTED(name, bytes) __asm__("__imp__" #name "@" #bytes)
#endif
extern "C" decltype(&::FindFirstFileW) calledToFind IMPORTED(FindFirstFileW, 8);
extern "C" decltype(&::MoveFileExW) calledToMove IMPORTED(MoveFileExW, 12);

/// When it ends, calls of a function of the system go there again.
template <class Function>
struct Restored {
  Function& called;
  Function own = called;
  ~Restored() { called = own; }
};

// As a folder of a cloud does, gives each file a tag: FILE_ATTRIBUTE_REPARSE_POINT is set, and the
// tag is in dwReserved0.
DWORD tag = 0;
HANDLE WINAPI foundWithTag(LPCWSTR path, WIN32_FIND_DATAW* found) {
  const HANDLE search =
      ::FindFirstFileExW(path, FindExInfoStandard, found, FindExSearchNameMatch, nullptr, 0);
  found->dwFileAttributes |= FILE_ATTRIBUTE_REPARSE_POINT;
  found->dwReserved0 = tag;
  return search;
}

TEST_F(WindowsFiles, InACloudAreFilesLikeAnyOther) {
  folder.put("file", "old");
  const Restored found{calledToFind};
  calledToFind = foundWithTag;
  for (const DWORD cloud : {IO_REPARSE_TAG_CLOUD, IO_REPARSE_TAG_CLOUD_F, IO_REPARSE_TAG_DEDUP}) {
    tag = cloud;
    EXPECT_EQ(native::withoutLinks(folder("file")), folder("file")) << tag;
  }
  for (const DWORD link : {IO_REPARSE_TAG_SYMLINK, IO_REPARSE_TAG_MOUNT_POINT}) {
    tag = link;
    EXPECT_EQ(native::withoutLinks(folder("file")), u"\\\\?\\" + folder("file")) << tag;
  }
  EXPECT_TRUE(replaceFile(folder("file"), "new"));
  EXPECT_EQ(folder.get("file"), "new");
}

/// A virus scanner, which holds a file, lets go of it after somebody has met it.
HANDLE scanner = nullptr;
BOOL WINAPI meetScanner(LPCWSTR from, LPCWSTR to, DWORD how) {
  const BOOL done = ::MoveFileWithProgressW(from, to, nullptr, nullptr, how);
  const DWORD error = ::GetLastError();
  EXPECT_EQ(done == FALSE, scanner != nullptr);
  if (scanner != nullptr) ::CloseHandle(std::exchange(scanner, nullptr));
  ::SetLastError(error);
  return done;
}

TEST_F(WindowsFiles, ThatAScannerHoldsAreReplacedWhenItLetsGo) {
  folder.put("file", "old");
  scanner = ::CreateFileW(text::wide(folder("file")), GENERIC_READ,
                          FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
  const Restored moved{calledToMove};
  calledToMove = meetScanner;
  EXPECT_TRUE(replaceFile(folder("file"), "new"));
  EXPECT_EQ(folder.get("file"), "new");
}

TEST_F(WindowsFiles, PathsLongerThanTheUsualLimit) {
  std::u16string deep = folder("");
  while (deep.size() < 600) {
    deep += u"\\" + std::u16string(100, u'd');
    ASSERT_TRUE(createFolder(deep));
  }
  EXPECT_TRUE(native::pathOf(deep).starts_with(u"\\\\?\\"));
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

/// The bytes below are those of Western Europe.
class FileText : public testing::Test {
 protected:
  void SetUp() override {
    if (::GetACP() != 1252) GTEST_SKIP() << "the system has code page " << ::GetACP();
  }
};

TEST_F(FileText, InTheCodePageWhereAllOfItFits) {
  EXPECT_EQ(text::toBytes(u"Größe 5 €"),
            "Gr\xF6\xDF"
            "e 5 \x80");
  EXPECT_EQ(text::toBytes(u"Größe 5 €, \u4E00"), text::toUtf8(u"Größe 5 €, \u4E00"));
  // These would be taken for UTF-8, or come back as a letter that merely looks alike.
  EXPECT_EQ(text::toBytes(u"Ã©"), text::toUtf8(u"Ã©"));
  EXPECT_EQ(text::toBytes(u"\u0100"), text::toUtf8(u"\u0100"));
  EXPECT_EQ(text::toAnsi(u"\u0100"), std::nullopt);
  EXPECT_EQ(text::fromAnsi("\xC3\xA9 \x80\x81"), u"Ã© €\u0081");
}

// The system's functions would look for a name alone in the system's folder, and could not be
// given some of these paths.
TEST_F(FileText, SettingsFilesOfEveryName) {
  const tests::TemporaryFolder folder;
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.native(""));
  const std::u16string longName(200, u'n');
  for (const auto& name : {std::u16string(u"steps.ini"), std::u16string(u".\\\u4E00.ini"),
                           folder(std::string(150, 'm')) + longName.substr(0, 50)}) {
    EXPECT_TRUE(writePrivateProfileStrings("Sec", {{"K", "v\x81\xE9"}}, name));
    EXPECT_EQ(getPrivateProfileString("sec", "k", "", name), "v\x81\xE9");
  }
  EXPECT_EQ(folder.names().size(), 3U);
  std::filesystem::current_path(before);
}

}  // namespace
}  // namespace kvrnstep::platform
