#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <functional>

#include "platform/files.h"
#include "platform/module.h"
#include "platform/profile.h"
#include "temporary_folder.h"
#include "text/codepage.h"

namespace kvrnstep::platform {
namespace {

using Names = std::set<std::string>;

/// Runs the work in a process of its own. Whether it ended well there.
bool inOtherProcess(const std::function<bool()>& work) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(work() ? 0 : 1);
  int status = -1;
  ::waitpid(child, &status, 0);
  return status == 0;
}

/// What the work gives when it is done by somebody whom permissions stop.
constexpr uid_t kNobody = 65534;
bool asOrdinaryUser(const std::function<bool()>& work) {
  return inOtherProcess([&] {
    const bool ordinary = ::geteuid() != 0 || (::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
    return ordinary && work();
  });
}

class PosixFiles : public testing::Test {
 protected:
  void link(const char* target, const char* name) {
    ASSERT_EQ(::symlink(target, folder.native(name).c_str()), 0);
  }
  [[nodiscard]] std::string leadsTo(const char* name) const {
    return std::filesystem::read_symlink(folder.path(name)).string();
  }

  tests::TemporaryFolder folder;
};

TEST_F(PosixFiles, OnlyRegularOnesAreReadAndReplaced) {
  folder.put("file", "old");
  ASSERT_EQ(::mkfifo(folder.native("pipe").c_str(), 0600), 0);
  ASSERT_TRUE(createFolder(folder("sub")));
  link("sub", "to-sub");
  link("circle", "circle");
  link("file", "link");
  link("nowhere/at/all", "lost");
  EXPECT_EQ(readFile(folder("link")), "old");
  EXPECT_EQ(readFile(u"/dev/zero"), std::nullopt);
  // The system does not tell the sizes of these.
  if (pathExists(u"/proc/self/maps")) {
    EXPECT_TRUE(readFile(u"/proc/self/maps").value_or("").ends_with('\n'));
  }
  const Names before = folder.names();
  for (const char* name : {"pipe", "to-sub", "circle", "lost"}) {
    EXPECT_EQ(readFile(folder(name)), std::nullopt) << name;
    EXPECT_FALSE(replaceFile(folder(name), "x")) << name;
    EXPECT_FALSE(createEmptyFile(folder(name))) << name;
  }
  EXPECT_EQ(folder.names(), before);
  EXPECT_FALSE(pathExists(folder("lost")));
}

TEST_F(PosixFiles, LinksAreFollowed) {
  ASSERT_TRUE(createFolder(folder("sub")));
  folder.put("sub/real", "old");
  link("sub/second", "first");
  link("real", "sub/second");
  link("sub/new", "dangling");
  link(folder.native("sub/newer").c_str(), "absolute");
  link("sub/newest", "third");
  for (const char* name : {"first", "dangling", "absolute"}) {
    EXPECT_TRUE(replaceFile(folder(name), name));
  }
  EXPECT_TRUE(createEmptyFile(folder("third")));
  EXPECT_EQ(folder.get("sub/real"), "first");
  EXPECT_EQ(folder.get("sub/new"), "dangling");
  EXPECT_EQ(folder.get("sub/newer"), "absolute");
  EXPECT_TRUE(pathExists(folder("sub/newest")));
  EXPECT_EQ(leadsTo("first"), "sub/second");
  EXPECT_EQ(leadsTo("sub/second"), "real");
  EXPECT_EQ(leadsTo("dangling"), "sub/new");
}

TEST_F(PosixFiles, AreListedAndDeletedByNamesThatCanBeWritten) {
  folder.put("file", "");
  folder.put("\xE9", "");
  link("file", "link");
  link("nowhere", "dangling");
  const auto names = filesIn(folder(""));
  EXPECT_EQ(std::set(names.begin(), names.end()), (std::set<std::u16string>{u"file", u"link"}));
  for (const char* name : {"dangling", "link"}) EXPECT_TRUE(deleteFile(folder(name)));
  EXPECT_FALSE(deleteFile(folder("") + u"\u00E9"));
  EXPECT_EQ(folder.names(), (Names{"file", "\xE9"}));
}

TEST_F(PosixFiles, KeepTheirPermissions) {
  const mode_t before = ::umask(027);
  EXPECT_TRUE(replaceFile(folder("new"), "x"));
  EXPECT_EQ(folder.mode("new"), 0640U);
  folder.put("file", "old");
  for (const unsigned bits : {0600U, 0666U, 0755U, 0222U, 0420U, 02664U}) {
    if (::geteuid() != 0 && (bits & 0200U) == 0) continue;
    folder.setMode("file", bits);
    EXPECT_TRUE(replaceFile(folder("file"), "bits " + std::to_string(bits)));
    EXPECT_EQ(folder.mode("file"), bits);
  }
  ::umask(before);
  // Settings that cannot be read are not replaced by one key.
  folder.setMode("", 0777);
  folder.setMode("file", 0222);
  EXPECT_FALSE(
      asOrdinaryUser([&] { return writePrivateProfileString("Sec", "Key", "2", folder("file")); }));
}

TEST_F(PosixFiles, KeepTheirOwnerWhereAllowed) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser gives files away";
  const auto own = [this](uid_t user, gid_t group, unsigned bits) {
    folder.put("file", "old");
    ASSERT_EQ(::chown(folder.native("file").c_str(), user, group), 0);
    folder.setMode("file", bits);
  };
  own(12345, 23456, 04640);
  ASSERT_TRUE(replaceFile(folder("file"), "new"));
  struct stat state {};
  ASSERT_EQ(::stat(folder.native("file").c_str(), &state), 0);
  EXPECT_TRUE(state.st_uid == 12345 && state.st_gid == 23456 && folder.mode("file") == 04640);

  // The rights of the owner, and of the group, do not pass to somebody else.
  folder.setMode("", 0777);
  for (const gid_t group : {gid_t{0}, gid_t{kNobody}}) {
    own(0, group, 06777);
    ASSERT_TRUE(asOrdinaryUser([&] { return replaceFile(folder("file"), "new"); }));
    EXPECT_EQ(folder.get("file"), "new");
    EXPECT_EQ(folder.mode("file"), 0777U);
  }
  own(0, 0, 0644);
  EXPECT_FALSE(asOrdinaryUser([&] { return replaceFile(folder("file"), "new"); }));
  EXPECT_EQ(folder.get("file"), "old");
  EXPECT_EQ(folder.names(), Names{"file"});
}

TEST_F(PosixFiles, StayInAFolderThatTakesNone) {
  folder.put("file", "old");
  folder.setMode("file", 0666);
  folder.setMode("", 0555);
  EXPECT_FALSE(asOrdinaryUser(
      [&] { return replaceFile(folder("file"), "new") || replaceFile(folder("other"), "new"); }));
  folder.setMode("", 0755);
  EXPECT_EQ(folder.get("file"), "old");
  EXPECT_EQ(folder.names(), Names{"file"});
}

TEST_F(PosixFiles, ThatAKilledProcessLeaves) {
  folder.put("file", "old");
  folder.setMode("file", 0644);
  // The system kills who writes more than it may.
  EXPECT_FALSE(inOtherProcess([&] {
    constexpr rlimit kThreeBytes{3, 3};
    ::setrlimit(RLIMIT_FSIZE, &kThreeBytes);
    return replaceFile(folder("file"), "longer");
  }));
  Names left = folder.names();
  left.erase("file");
  ASSERT_EQ(left.size(), 1U);
  EXPECT_EQ(folder.mode(*left.begin()), 0600U) << "nobody else may read what is being written";
  EXPECT_EQ(folder.get("file"), "old");
  // They are in nobody's way.
  EXPECT_TRUE(inOtherProcess([&] {
    const std::string start = ".kvrnstep-" + std::to_string(::getpid()) + "-";
    for (int i = 0; i < 50; ++i) folder.put(start + std::to_string(i), "left");
    return replaceFile(folder("file"), "new") && folder.names().size() == 52;
  }));
  EXPECT_EQ(folder.get("file"), "new");
}

TEST(Module, FolderIsThatOfTheLoadedFileWhateverTheWorkingFolder) {
  const auto program = std::filesystem::read_symlink("/proc/self/exe");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path("/");
  EXPECT_EQ(text::toBytes(moduleFolder()), program.parent_path().string());
  std::filesystem::current_path(before);
}

TEST(Module, IsLoadedByItsFullPath) {
  Dl_info library{};
  const auto* exported = reinterpret_cast<const void*>(&std::terminate);
  if (::dladdr(exported, &library) == 0 || library.dli_fname[0] != '/') GTEST_SKIP();
  std::string problem;
  void* module = loadModule(text::fromBytes(library.dli_fname), problem);
  ASSERT_NE(module, nullptr) << problem;
  EXPECT_EQ(problem, "");
  EXPECT_NE(symbolOf(module, "_ZSt9terminatev"), nullptr);
  EXPECT_EQ(symbolOf(module, "no such symbol"), nullptr);

  const tests::TemporaryFolder folder;
  folder.put("text.so", "no module");
  // The system would find the first one by itself.
  for (const auto& path : {std::u16string(u"libc.so.6"), std::u16string(u"./text.so"),
                           std::u16string(), folder("text.so"), folder("missing.so")}) {
    problem.clear();
    EXPECT_EQ(loadModule(path, problem), nullptr);
    EXPECT_NE(problem, "");
  }
}

}  // namespace
}  // namespace kvrnstep::platform
