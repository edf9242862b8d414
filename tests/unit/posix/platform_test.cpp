#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <exception>
#include <functional>
#include <future>
#include <tuple>
#include <vector>

#include "platform/files.h"
#include "platform/module.h"
#include "platform/profile.h"
#include "temporary_folder.h"
#include "text/codepage.h"

namespace kvrnstep::platform {
namespace {

using Names = std::set<std::string>;

/// Runs the work in a process of its own. Whether it ended well there.
bool inOtherProcess(const std::function<bool()>& work, pid_t* number = nullptr) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(work() ? 0 : 1);
  if (number != nullptr) *number = child;
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
  for (const char* name : {"circle", "lost"}) EXPECT_FALSE(pathExists(folder(name))) << name;
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
  EXPECT_TRUE(createFolder(folder("made")));
  EXPECT_EQ(folder.mode("made"), 0750U);
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
  EXPECT_FALSE(asOrdinaryUser([&] {
    return writePrivateProfileStrings("Sec", {{"Key", "2"}}, folder("file"));
  }));
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

  // The rights of the owner do not pass to somebody else. Where the group is another one, it and
  // everybody have what both had.
  folder.setMode("", 0777);
  for (const auto& [group, before, after] :
       {std::tuple{0U, 06777U, 0777U}, std::tuple{0U, 0676U, 0666U}, std::tuple{0U, 0626U, 0622U},
        std::tuple{kNobody, 06676U, 0676U}}) {
    own(0, group, before);
    ASSERT_TRUE(asOrdinaryUser([&] { return replaceFile(folder("file"), "new"); }));
    EXPECT_EQ(folder.get("file"), "new");
    EXPECT_EQ(folder.mode("file"), after);
  }
  own(0, 0, 0644);
  EXPECT_FALSE(asOrdinaryUser([&] { return replaceFile(folder("file"), "new"); }));
  EXPECT_EQ(folder.get("file"), "old");
  EXPECT_EQ(folder.names(), Names{"file"});
}

TEST_F(PosixFiles, KeepTheirAttributes) {
  constexpr const char* kList = "system.posix_acl_access";
  // For the owner, user 65534, the group, the mask and everybody.
  const auto list = [](char group) {
    std::string bytes("\2\0\0\0", 4);
    for (const auto& [tag, rights] : {std::pair{1, 6}, {2, 6}, {4, int{group}}, {16, 6}, {32, 0}}) {
      bytes += {static_cast<char>(tag), 0, static_cast<char>(rights), 0};
      bytes += tag == 2 ? std::string("\xFE\xFF\0\0", 4) : "\xFF\xFF\xFF\xFF";
    }
    return bytes;
  };
  const auto set = [this](const char* name, const char* which, const std::string& bytes) {
    return ::setxattr(folder.native(name).c_str(), which, bytes.data(), bytes.size(), 0) == 0;
  };
  const auto get = [this](const char* name, const char* which) {
    std::string bytes(100, 0);
    const auto size = ::getxattr(folder.native(name).c_str(), which, bytes.data(), bytes.size());
    return size < 0 ? "" : bytes.substr(0, static_cast<std::size_t>(size));
  };
  for (const auto* name : {"plain", "listed"}) folder.put(name, "old");
  folder.setMode("plain", 0660);
  folder.setMode("", 0777);
  if (!set("listed", kList, list(4)) || !set("listed", "user.kept", "v")) GTEST_SKIP();
  // What new files there get is not for those that take the place of others.
  ASSERT_TRUE(set("", "system.posix_acl_default", list(6)));
  for (const auto* name : {"plain", "listed"}) ASSERT_TRUE(replaceFile(folder(name), "new"));
  EXPECT_EQ(get("plain", kList), "");
  EXPECT_EQ(folder.mode("plain"), 0660U);
  EXPECT_EQ(get("listed", kList), list(4));
  EXPECT_EQ(get("listed", "user.kept"), "v");
  if (::geteuid() != 0) return;
  ASSERT_TRUE(asOrdinaryUser([&] { return replaceFile(folder("listed"), "newer"); }));
  EXPECT_EQ(get("listed", kList), list(0)) << "the group is another one";
  EXPECT_EQ(get("listed", "user.kept"), "v");
}

TEST_F(PosixFiles, AreWrittenInPlaceInAFolderThatTakesNone) {
  const tests::TemporaryFolder state;
  state.setMode("", 0777);
  folder.put("file", "old");
  folder.setMode("file", 0666);
  folder.setMode("", 0555);
  const auto replace = [&](const char* name, const char* bytes) {
    ::setenv("XDG_STATE_HOME", state.native("").c_str(), 1);
    return replaceFile(folder(name), bytes);
  };
  EXPECT_TRUE(asOrdinaryUser([&] {
    // What is longer fails, and no signal is left that would end the process.
    constexpr rlimit kThreeBytes{3, 3};
    ::setrlimit(RLIMIT_FSIZE, &kThreeBytes);
    sigset_t pending;
    return !replace("file", "longer") && folder.get("file") == "old" &&
           ::sigpending(&pending) == 0 && ::sigismember(&pending, SIGXFSZ) == 0;
  }));
  EXPECT_TRUE(asOrdinaryUser([&] { return replace("file", "longer") && replace("file", "new"); }));
  EXPECT_FALSE(asOrdinaryUser([&] { return replace("other", "new"); }));
  folder.setMode("", 0755);
  EXPECT_EQ(folder.get("file"), "new");
  EXPECT_EQ(folder.names(), Names{"file"});
  EXPECT_TRUE(std::filesystem::is_empty(state.path("listwright")));
}

TEST_F(PosixFiles, ThatAKilledProcessLeaves) {
  pid_t gone = 0;
  ASSERT_TRUE(inOtherProcess([] { return true; }, &gone));
  const std::string start = ".kvrnstep-" + std::to_string(gone);
  const Names others{"file",      ".kvrnstep-1-0", ".kvrnstep-",  start,
                     start + "-", start + "-x",    start + "-0-0"};
  for (const auto& name : others) folder.put(name, "");
  folder.put(start + "-12", "left");
  link("file", (start + "-1").c_str());
  EXPECT_TRUE(replaceFile(folder("file"), "new"));
  Names left = folder.names();
  EXPECT_EQ(left.erase(start + "-1"), 1U);
  EXPECT_EQ(left, others);
  // Names that are taken are in nobody's way.
  EXPECT_TRUE(inOtherProcess([&] {
    for (int i = 0; i < 50; ++i) {
      folder.put(".kvrnstep-" + std::to_string(::getpid()) + "-" + std::to_string(i), "left");
    }
    return replaceFile(folder("file"), "newer") && folder.names().size() == others.size() + 51;
  }));
  EXPECT_EQ(folder.get("file"), "newer");
}

TEST_F(PosixFiles, OfSettingsLoseNoKeyWhereSeveralWrite) {
  const auto write = [this](const std::string& who) {
    int lost = 0;
    for (int round = 0; round < 50; ++round) {
      const std::string value = std::to_string(round);
      writePrivateProfileStrings("Sec", {{who, value}, {"Of" + who, value}}, folder("ini"));
      for (const auto& key : {who, "Of" + who}) {
        lost += getPrivateProfileString("Sec", key, "", folder("ini")) == value ? 0 : 1;
      }
    }
    return lost;
  };
  std::vector<std::future<int>> writers;
  for (const auto* who : {"Dialog", "Other", "Host"}) {
    writers.push_back(std::async(std::launch::async, write, who));
  }
  for (auto& writer : writers) EXPECT_EQ(writer.get(), 0);
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
