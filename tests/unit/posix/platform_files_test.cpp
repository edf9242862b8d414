#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

#include "platform/files.h"
#include "platform_temporary_folder.h"
#include "posix/platform_other_process.h"

namespace kvrnstep::platform {
namespace {

using namespace std::string_literals;
using tests::asOrdinaryUser;
using tests::inOtherProcess;
using Names = std::set<std::string>;

class ReplaceFile : public testing::Test {
 protected:
  tests::TemporaryFolder folder;
};

TEST(Files, ReadsRegularFilesOnly) {
  const tests::TemporaryFolder folder;
  folder.put("file", "a\0\r\n\xFF"s);
  folder.put("empty", "");
  ASSERT_EQ(::mkfifo(folder.native("pipe").c_str(), 0600), 0);
  ASSERT_EQ(::symlink("file", folder.native("link").c_str()), 0);

  EXPECT_EQ(readFile(folder("file")), "a\0\r\n\xFF"s);
  EXPECT_EQ(readFile(folder("link")), "a\0\r\n\xFF"s);
  EXPECT_EQ(readFile(folder("empty")), "");
  EXPECT_EQ(readFile(folder("missing")), std::nullopt);
  EXPECT_EQ(readFile(folder("")), std::nullopt);
  EXPECT_EQ(readFile(folder("pipe")), std::nullopt);
  EXPECT_EQ(readFile(u"/dev/zero"), std::nullopt);
  EXPECT_EQ(readFile(u""), std::nullopt);
  EXPECT_EQ(readFile(folder("file") + u'\0' + u"x"), std::nullopt);
}

TEST(Files, ReadsFilesWhoseSizeTheSystemDoesNotTell) {
  const auto bytes = readFile(u"/proc/self/maps");
  if (!pathExists(u"/proc/self/maps")) GTEST_SKIP();
  ASSERT_TRUE(bytes);
  EXPECT_TRUE(bytes->ends_with('\n'));
}

TEST(Files, WhatIsThere) {
  const tests::TemporaryFolder folder;
  folder.put("file", "x");
  ASSERT_EQ(::symlink("nowhere", folder.native("dangling").c_str()), 0);

  EXPECT_TRUE(pathExists(folder("file")));
  EXPECT_TRUE(pathExists(folder("")));
  EXPECT_FALSE(pathExists(folder("missing")));
  EXPECT_FALSE(pathExists(folder("dangling")));
  EXPECT_FALSE(pathExists(folder("file/below")));
  EXPECT_FALSE(pathExists(u""));
}

TEST(Files, CreatesFoldersOneLevelAtATime) {
  const tests::TemporaryFolder folder;
  EXPECT_FALSE(createFolder(folder("a/b")));
  EXPECT_TRUE(createFolder(folder("a")));
  EXPECT_TRUE(createFolder(folder("a/b")));
  EXPECT_TRUE(pathExists(folder("a/b/")));
  EXPECT_FALSE(createFolder(folder("a")));
}

TEST(Files, CreatesEmptyFilesAndKeepsWhatIsThere) {
  const tests::TemporaryFolder folder;
  folder.put("file", "kept");
  ASSERT_EQ(::symlink("behind", folder.native("dangling").c_str()), 0);

  EXPECT_TRUE(createEmptyFile(folder("new")));
  EXPECT_TRUE(createEmptyFile(folder("file")));
  EXPECT_TRUE(createEmptyFile(folder("dangling")));
  EXPECT_FALSE(createEmptyFile(folder("missing/new")));
  EXPECT_FALSE(createEmptyFile(folder("")));
  EXPECT_EQ(folder.get("file"), "kept");
  EXPECT_EQ(folder.names(), (Names{"behind", "dangling", "file", "new"}));
}

TEST(Files, ListsAndDeletesWhatCanBeNamedAndWritten) {
  const tests::TemporaryFolder folder;
  for (const char* name : {"file", "kept", "\xC3\xA9"}) folder.put(name, "");
  const int other = ::creat(folder.native("\xE9").c_str(), 0600);
  ASSERT_GE(other, 0);
  ::close(other);
  folder.setMode("kept", 0444);
  ASSERT_TRUE(createFolder(folder("folder")));
  ASSERT_EQ(::symlink("nowhere", folder.native("dangling").c_str()), 0);
  auto names = filesIn(folder(""));
  std::ranges::sort(names);
  EXPECT_EQ(names, (std::vector<std::u16string>{u"file", u"kept", u"é"}));
  for (const char* name : {"kept", "folder", "missing"}) EXPECT_FALSE(deleteFile(folder(name)));
  for (const char* name : {"file", "\xC3\xA9", "dangling"}) EXPECT_TRUE(deleteFile(folder(name)));
  EXPECT_EQ(::access(folder.native("\xE9").c_str(), F_OK), 0);
  EXPECT_EQ(::access(folder.native("kept").c_str(), F_OK), 0);
}

TEST_F(ReplaceFile, CreatesAndReplaces) {
  const std::string contents[] = {"", "a\0\r\n\xFF"s, std::string(3'000'000, 'x'), "short", ""};
  for (const auto& bytes : contents) {
    ASSERT_TRUE(replaceFile(folder("file"), bytes));
    ASSERT_EQ(folder.get("file"), bytes);
  }
  EXPECT_EQ(folder.names(), Names{"file"});
}

TEST_F(ReplaceFile, NewFilesGetTheUsualPermissions) {
  const mode_t before = ::umask(027);
  EXPECT_TRUE(replaceFile(folder("file"), "x"));
  ::umask(before);
  EXPECT_EQ(folder.mode("file"), 0640U);
}

TEST_F(ReplaceFile, KeepsPermissions) {
  folder.put("file", "old");
  for (const unsigned bits : {0600U, 0666U, 0755U, 0222U, 0420U, 02664U}) {
    if (::geteuid() != 0 && (bits & 0200U) == 0) continue;
    folder.setMode("file", bits);
    ASSERT_TRUE(replaceFile(folder("file"), "bits " + std::to_string(bits)));
    EXPECT_EQ(folder.mode("file"), bits);
  }
}

TEST_F(ReplaceFile, KeepsTheOwnerWhereAllowed) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser gives files away";
  folder.put("file", "old");
  ASSERT_EQ(::chown(folder.native("file").c_str(), 12345, 23456), 0);
  folder.setMode("file", 04640);
  ASSERT_TRUE(replaceFile(folder("file"), "new"));
  struct stat state {};
  ASSERT_EQ(::stat(folder.native("file").c_str(), &state), 0);
  EXPECT_EQ(state.st_uid, 12345U);
  EXPECT_EQ(state.st_gid, 23456U);
  EXPECT_EQ(folder.mode("file"), 04640U);
}

TEST_F(ReplaceFile, RightsOfTheOwnerDoNotPassToSomebodyElse) {
  if (::geteuid() != 0) GTEST_SKIP() << "needs two users";
  folder.put("file", "old");
  folder.setMode("", 0777);
  folder.setMode("file", 06777);
  ASSERT_TRUE(asOrdinaryUser([&] { return replaceFile(folder("file"), "new"); }));
  EXPECT_EQ(folder.get("file"), "new");
  EXPECT_EQ(folder.mode("file"), 0777U);
}

TEST_F(ReplaceFile, LeavesAloneWhatMayNotBeWritten) {
  folder.put("file", "old");
  folder.setMode("file", 0444);
  EXPECT_FALSE(replaceFile(folder("file"), "new"));
  EXPECT_EQ(folder.get("file"), "old");
  EXPECT_EQ(folder.mode("file"), 0444U);
  EXPECT_EQ(folder.names(), Names{"file"});
}

TEST_F(ReplaceFile, LeavesAloneWhatOnlyOthersMayWrite) {
  if (::geteuid() != 0) GTEST_SKIP() << "needs two users";
  folder.put("file", "old");
  folder.setMode("", 0777);
  folder.setMode("file", 0644);
  EXPECT_FALSE(asOrdinaryUser([&] { return replaceFile(folder("file"), "new"); }));
  EXPECT_EQ(folder.get("file"), "old");
  EXPECT_EQ(folder.names(), Names{"file"});
}

TEST_F(ReplaceFile, FailsInAFolderThatTakesNoFiles) {
  folder.put("file", "old");
  folder.setMode("file", 0666);
  folder.setMode("", 0555);
  EXPECT_FALSE(asOrdinaryUser(
      [&] { return replaceFile(folder("file"), "new") || replaceFile(folder("other"), "new"); }));
  folder.setMode("", 0755);
  EXPECT_EQ(folder.get("file"), "old");
  EXPECT_EQ(folder.names(), Names{"file"});
}

TEST_F(ReplaceFile, LeavesAloneWhatIsNoFile) {
  ASSERT_TRUE(createFolder(folder("sub")));
  ASSERT_EQ(::mkfifo(folder.native("pipe").c_str(), 0600), 0);
  ASSERT_EQ(::symlink("sub", folder.native("link").c_str()), 0);
  ASSERT_EQ(::symlink("circle", folder.native("circle").c_str()), 0);
  folder.put("file", "old");
  const auto before = folder.names();

  for (const auto* name :
       {"sub", "pipe", "link", "circle", "sub/", "new/", "file/", "file/new", "missing/new", ""}) {
    EXPECT_FALSE(replaceFile(folder(name), "x")) << name;
  }
  EXPECT_FALSE(replaceFile(u"", "x"));
  EXPECT_FALSE(replaceFile(folder("file") + u'\0' + u"x", "x"));
  EXPECT_EQ(folder.names(), before);
  EXPECT_EQ(folder.get("file"), "old");
}

TEST_F(ReplaceFile, FollowsLinksToTheirFile) {
  ASSERT_TRUE(createFolder(folder("sub")));
  folder.put("sub/real", "old");
  ASSERT_EQ(::symlink("sub/second", folder.native("first").c_str()), 0);
  ASSERT_EQ(::symlink("real", folder.native("sub/second").c_str()), 0);

  EXPECT_TRUE(replaceFile(folder("first"), "new"));
  EXPECT_EQ(folder.get("sub/real"), "new");
  EXPECT_EQ(std::filesystem::read_symlink(folder.native("first")), "sub/second");
  EXPECT_EQ(std::filesystem::read_symlink(folder.native("sub/second")), "real");
}

TEST_F(ReplaceFile, CreatesTheFileThatALinkLeadsTo) {
  ASSERT_TRUE(createFolder(folder("sub")));
  ASSERT_EQ(::symlink("sub/real", folder.native("relative").c_str()), 0);
  ASSERT_EQ(::symlink(folder.native("sub/other").c_str(), folder.native("absolute").c_str()), 0);
  ASSERT_EQ(::symlink("missing/real", folder.native("lost").c_str()), 0);

  EXPECT_TRUE(replaceFile(folder("relative"), "one"));
  EXPECT_TRUE(replaceFile(folder("absolute"), "two"));
  EXPECT_FALSE(replaceFile(folder("lost"), "three"));
  EXPECT_EQ(folder.get("sub/real"), "one");
  EXPECT_EQ(folder.get("sub/other"), "two");
  EXPECT_EQ(folder.names(), (Names{"absolute", "lost", "relative", "sub"}));
}

TEST_F(ReplaceFile, NamesOfEveryLength) {
  const std::string longest(255, 'n');
  EXPECT_TRUE(replaceFile(folder(longest), "one"));
  EXPECT_TRUE(replaceFile(folder(longest), "two"));
  EXPECT_EQ(folder.get(longest), "two");
  EXPECT_FALSE(replaceFile(folder(std::string(256, 'n')), "x"));
  EXPECT_EQ(folder.names(), Names{longest});
}

TEST_F(ReplaceFile, EqualBytesAreNotWrittenAgain) {
  folder.put("file", "same");
  struct stat before {};
  ASSERT_EQ(::stat(folder.native("file").c_str(), &before), 0);
  EXPECT_TRUE(replaceFile(folder("file"), "same"));
  struct stat after {};
  ASSERT_EQ(::stat(folder.native("file").c_str(), &after), 0);
  EXPECT_EQ(after.st_ino, before.st_ino);
}

TEST_F(ReplaceFile, PassesOverFilesThatAKilledProcessLeft) {
  EXPECT_EQ(inOtherProcess([&] {
              const std::string start = ".kvrnstep-" + std::to_string(::getpid()) + "-";
              for (int i = 0; i < 50; ++i) folder.put(start + std::to_string(i), "left");
              return replaceFile(folder("file"), "new") && folder.names().size() == 51;
            }),
            0);
  EXPECT_EQ(folder.get("file"), "new");
}

}  // namespace
}  // namespace kvrnstep::platform
