// Fails every call to the system that the plug-in's files need, one after the other, while a
// script uses them all: what was stored is there, as it was or as it was to become, and the dialog
// goes on.

#include <gtest/gtest.h>
#include <sys/statvfs.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <map>
#include <sstream>
#include <vector>

#include "temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
namespace tests = kvrnstep::tests;
using Files = std::map<std::string, std::string>;  ///< content by path; of links, where they lead

const std::string kLink = "-> ";
const std::string kSettings = "run/real/settings";
const std::string kForeignStart = "; mine\n[Other]\nDisplay=kept\n\n[Listwright]\nMine=1\n";
const std::string kForeignEnd = "\n\n[Last]\nkept";

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

/// What was there before the script ran.
const Files kBefore{
    {"run/steps.ini", kLink + "real/settings"},
    {kSettings, kForeignStart + "Suffix=)\nSelection=0\nEditorFont=Old" + kForeignEnd},
    {"run/steps/Prefix_Step.dat", kLink + "../real/prefixes"},
    {"run/real/prefixes", "one\r\ntwo\r\n"},
    {"run/steps/beginning_step.dat", "\"first\"\r\n\"second\"\r\n"},
    {"run/steps/begin_my_step.dat", "old\r\n"},
    {"run/steps/one.step", "0,\"old\",\"\",\"\",\".\",0,1,5,0,0,1,0,0,0,0\r\n"},
    {"run/steps/list.txt", "old\r\n"},
    {"icons/Stepicon.ico", "old"},
};

class Faults : public testing::Test {
 protected:
  Faults() {
    fs::create_directory(work_.path("run"));
    fs::create_directory(work_.path("icons"));
    for (const char* module : {PLUGIN_LIBRARY, FRONT_END}) fs::copy_file(module, inIcons(module));
  }

  /// A folder in memory if there is one: the files are written some ten thousand times.
  static fs::path fastFolder() {
    constexpr const char* kInMemory = "/dev/shm";
    struct statvfs state {};
    const bool usable = ::statvfs(kInMemory, &state) == 0 && (state.f_flag & ST_NOEXEC) == 0 &&
                        ::access(kInMemory, W_OK) == 0;
    return usable ? fs::path(kInMemory) : fs::temp_directory_path();
  }

  /// The plug-in's own folder, to which its icons are written.
  [[nodiscard]] fs::path inIcons(const fs::path& module) const {
    return work_.path("icons") / module.filename();
  }

  void putFilesBack() const {
    for (const auto& [name, content] : files()) fs::remove(work_.path(name));
    fs::remove_all(work_.path("run"));
    for (const auto& [name, content] : kBefore) {
      const fs::path path = work_.path(name);
      fs::create_directories(path.parent_path());
      if (content.starts_with(kLink)) {
        fs::create_symlink(content.substr(kLink.size()), path);
      } else {
        work_.put(name, content);
      }
    }
    for (const char* name : {"settings", "prefixes"}) work_.setMode("run/real/"s + name, 0600);
  }

  [[nodiscard]] Files files() const {
    Files all;
    for (const char* part : {"run", "icons"}) {
      for (const auto& entry : fs::recursive_directory_iterator(work_.path(part))) {
        const std::string name = entry.path().lexically_relative(work_.path("")).string();
        if (name.find(".so") != std::string::npos) continue;
        if (name.starts_with("run/real/")) {
          EXPECT_EQ(work_.mode(name) & 077U, 0U) << name << " is for its owner alone";
        }
        if (entry.is_symlink()) {
          all[name] = kLink + fs::read_symlink(entry.path()).string();
        } else if (entry.is_regular_file()) {
          all[name] = work_.get(name);
        }
      }
    }
    return all;
  }

  /// Runs the script with a fault of this kind and returns how the process ended.
  [[nodiscard]] int runScript(const std::string& how) const {
    const auto quoted = [this](const char* name) { return "'" + work_.native(name) + "'"; };
    const std::string command =
        "cd " + quoted("run") +
        " && exec env -i LD_PRELOAD='" FAILING_CALLS "' FAULTS_FOLDER=" + quoted("") +
        " FAULTS_LOG=" + quoted("log") + " FAULTS_HOW='" + how +
        "' ASAN_OPTIONS=verify_asan_link_order=0:detect_leaks=0 '" STEPDRIVE "' --plugin '" +
        inIcons(PLUGIN_LIBRARY).string() + "' '" SCRIPT "' >" + quoted("out") + " 2>&1";
    return std::system(command.c_str());
  }

  [[nodiscard]] std::string output() const { return work_.get("out"); }

  /// What opened, closed and returned, to the last line of the script.
  [[nodiscard]] std::vector<std::string> windowEvents() const {
    auto lines = linesOf(output());
    std::erase_if(lines, [](const std::string& line) {
      return !line.starts_with("opened ") && !line.starts_with("closed ") &&
             !line.starts_with("returned ") && !line.starts_with("version ");
    });
    return lines;
  }

  const tests::TemporaryFolder work_{fastFolder()};
};

/// What is right after a run, told by one in which nothing fails.
class Judge {
 public:
  explicit Judge(Files after) : after_(std::move(after)) {
    for (const Files* files : {&kBefore, &std::as_const(after_)}) {
      for (const auto& line : linesOf(files->at(kSettings))) settingsLines_.insert(line);
    }
    // Nothing is displayed when the setting cannot be read.
    settingsLines_.insert("Display=");
    // A run after one that was killed takes the next number.
    after_["run/steps/one2.step"] = after_.at("run/steps/one1.step");
  }

  /// What is wrong with the files; nothing if all are whole.
  [[nodiscard]] std::string complaint(const Files& files, std::size_t mostTemporary) const {
    std::string all;
    std::size_t temporary = 0;
    for (const auto& [name, content] : files) {
      if (name.find("/.kvrnstep-") != std::string::npos) {
        ++temporary;
      } else if (name == kSettings ? !settingsAreRight(content) : !isRight(name, content)) {
        all += name + " holds \"" + content + "\"\n";
      }
    }
    for (const auto& [name, content] : kBefore) {
      if (!files.contains(name)) all += name + " is gone\n";
    }
    if (temporary > mostTemporary) all += std::to_string(temporary) + " temporary files\n";
    return all;
  }

 private:
  [[nodiscard]] bool isRight(const std::string& name, const std::string& content) const {
    const auto before = kBefore.find(name);
    const auto after = after_.find(name);
    if (before != kBefore.end() && before->second == content) return true;
    // What was added to a list that could not be read just then comes first.
    if (name == "run/real/prefixes" && content == "new\r\none\r\ntwo\r\n") return true;
    if (after == after_.end()) return false;
    // Lists and storage files that are missing are made before they are filled.
    const bool made = before == kBefore.end() && content.empty() && name.ends_with(".dat");
    return made || after->second == content;
  }

  /// Every key has its old or its new value, and what belongs to others is as it was.
  [[nodiscard]] bool settingsAreRight(const std::string& content) const {
    std::set<std::string> keys;
    for (const auto& line : linesOf(content)) {
      if (!settingsLines_.contains(line)) return false;
      keys.insert(keyOf(line));
    }
    for (const auto& line : linesOf(kBefore.at(kSettings))) {
      if (!keys.contains(keyOf(line))) return false;
    }
    return content.starts_with(kForeignStart) && content.ends_with(kForeignEnd);
  }
  static std::string keyOf(const std::string& line) { return line.substr(0, line.find('=')); }

  Files after_;
  std::set<std::string> settingsLines_;
};

using Calls = std::set<std::string>;
const Calls kByPath{"open", "opendir", "faccessat", "readlink", "rename"};
const Calls kNeedRoom{"open to write", "write", "mkdir"};
const Calls kByFile{"close", "fchmod",   "fchown",    "flock", "fremovexattr", "fstat", "fstatat",
                    "fsync", "getxattr", "listxattr", "read",  "readdir",      "stat"};
/// Between two of these a killed process leaves the same files wherever it is killed.
const Calls kChanging{"fchmod", "fchown", "fsync", "mkdir", "open to write", "rename", "write"};

/// The faults of one call that the script goes on after.
std::vector<std::string> faultsOf(const std::string& call, const std::string& number) {
  const int error = kByPath.contains(call) ? EACCES : kNeedRoom.contains(call) ? ENOSPC : EIO;
  std::vector<std::string> faults{"fail " + number + " " + std::to_string(error)};
  if (call == "read" || call == "write") faults.push_back("short " + number);
  return faults;
}

constexpr const char* kNoFault = "fail 0 0";

TEST_F(Faults, OfEveryCallLeaveWhatWasStored) {
  putFilesBack();
  ASSERT_EQ(runScript("log"), 0) << output();
  const auto calls = linesOf(work_.get("log"));
  const auto events = windowEvents();
  const Judge judge(files());
  Calls known = kByFile;
  for (const Calls* others : {&kByPath, &kNeedRoom}) known.insert(others->begin(), others->end());
  ASSERT_EQ(Calls(calls.begin(), calls.end()), known) << "the script has to come to all of them";

  const auto goesOn = [&](const std::string& how, std::size_t mostTemporary) {
    EXPECT_EQ(runScript(how), 0) << how << "\n" << output();
    EXPECT_EQ(windowEvents(), events) << how;
    EXPECT_EQ(output().find("one32001.step"), std::string::npos) << how << ": all names are in use";
    EXPECT_EQ(judge.complaint(files(), mostTemporary), "") << how;
  };
  std::size_t runs = 0;
  std::size_t left = 0;
  for (std::size_t i = 0; i < calls.size(); i += STRIDE) {
    const std::string number = std::to_string(i + 1);
    SCOPED_TRACE(calls[i]);
    for (const auto& how : faultsOf(calls[i], number)) {
      putFilesBack();
      goesOn(how, 0);
      ++runs;
    }
    putFilesBack();
    goesOn("gone " + number + " " + std::to_string(EIO), 1);
    ++runs;
    if (!kChanging.contains(calls[i])) continue;
    putFilesBack();
    const int status = runScript("kill " + number);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << number;
    EXPECT_EQ(judge.complaint(files(), 1), "") << "killed at " << number;
    ++runs;
    if (judge.complaint(files(), 0).empty()) continue;
    // What a killed process left is removed.
    goesOn(kNoFault, 0);
    ++left;
  }
  std::printf("%zu calls, %zu runs, %zu kills that left a temporary file\n", calls.size(), runs,
              left);
}

}  // namespace
