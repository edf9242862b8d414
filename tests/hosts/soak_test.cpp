// The dialog and its editors opened, and the preview made, over and over in one process: after the
// first hundred times memory does not grow.
//
// soak_test FRONTEND OPENINGS REFRESHES

#include <malloc.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "kvrnstep/driving.hpp"
#include "kvrnstep/listwright.hpp"
#ifdef WITH_QT
#include <QPixmapCache>
#endif

namespace {

namespace driving = kvrnstep::driving;

constexpr int kSettled = 100;
/// Less than the smallest object a time; a toolkit's hash tables change in size.
constexpr std::size_t kBytesToSpare = 1024;
/// The system counts pages in batches.
constexpr std::size_t kPagesToSpare = 64;

/// What the process holds, in bytes that are allocated and in pages.
struct Memory {
  std::size_t allocated = 0;
  std::size_t resident = 0;

  static Memory now() {
    Memory memory{.allocated = ::mallinfo2().uordblks};
    std::size_t size = 0;
    std::ifstream("/proc/self/statm") >> size >> memory.resident;
    return memory;
  }
};

bool failed = false;

void compare(const char* what, int times, const Memory& settled) {
  const Memory end = Memory::now();
  std::printf("%d %s: allocated %zu, then %zu bytes; resident %zu, then %zu pages\n", times, what,
              settled.allocated, end.allocated, settled.resident, end.resident);
  failed = failed || end.allocated > settled.allocated + kBytesToSpare ||
           end.resident > settled.resident + kPagesToSpare;
}

/// What the user does in turn; between the editors' opening and closing they are on top.
constexpr auto kEditors =
    std::to_array<std::u16string_view>({u"mnuEdits(0)", u"", u"mnuEdits(3)", u"", u""});

class User : public driving::Player {
 public:
  driving::Stage* stage = nullptr;
  int refreshes = 0;  ///< to be made in each call
  int opened = 0;     ///< windows

  void call(const kvrnstep::Listwright& plugin, const kvrnstep::DialogArguments& arguments) {
    next_ = 0;
    std::string list;
    plugin.ShowListwrightDialog(list, arguments);
  }

  void happened(std::string_view what, const std::vector<driving::Detail>& /*more*/) override {
    if (what == "opened") ++opened;
  }
  std::optional<std::u16string> answer() override { return std::nullopt; }

  void act() override {
#ifdef WITH_QT
    // It fills up with pictures of scroll bars, to its limit of 10 MB.
    QPixmapCache::setCacheLimit(0);
#endif
    if (next_ == 0 && refreshes > 0) refresh();
    const std::u16string_view entry = next_ < kEditors.size() ? kEditors.at(next_++) : u"";
    if (entry.empty()) {
      stage->closeTopmost();
    } else {
      perform("menu", entry);
    }
  }

 private:
  void perform(std::string_view verb, std::u16string_view word) {
    std::string reason;
    if (stage->perform(verb, {std::u16string(word)}, reason) != driving::Outcome::Done) {
      std::printf("%s: %s\n", verb.data(), reason.c_str());
      failed = true;
    }
  }

  void refresh() {
    perform("menu", u"mnuOptions(5)");
    Memory settled;
    std::string reason;
    for (int i = 0; i < refreshes; ++i) {
      if (i == kSettled) settled = Memory::now();
      stage->assign("txtEnd.text", i % 2 == 0 ? u"" : u"the last", reason);
    }
    compare("refreshes", refreshes, settled);
    driving::Value preview;
    stage->read("txtPreview.text", preview, reason);
    failed = failed || std::get<std::u16string>(preview).find(u"the last") == std::u16string::npos;
  }

  std::size_t next_ = 0;
};

driving::Stage* stageOf(const char* frontEnd, User& user) {
  void* library = ::dlopen(PLUGIN_LIBRARY, RTLD_NOW | RTLD_LOCAL);
  const auto drive = reinterpret_cast<driving::DriveFunction>(::dlsym(library, "kvrnstepDrive"));
  std::string problem;
  auto* stage = drive(frontEnd, &user, &problem);
  if (stage == nullptr) throw std::runtime_error(problem);
  return stage;
}

void soak(const char* frontEnd, int openings, int refreshes, const std::string& folder) {
  const auto plugin = kvrnstep::Listwright::load(PLUGIN_LIBRARY);
  const kvrnstep::DialogArguments arguments{.sPthStepFolder = folder,
                                            .SEC_APP_NAME = "Listwright",
                                            .s_IniPathAndName = folder + "/steps.ini"};
  User user;
  user.stage = stageOf(frontEnd, user);
  Memory settled;
  for (int i = 0; i < openings; ++i) {
    if (i == kSettled) settled = Memory::now();
    user.call(plugin, arguments);
  }
  compare("openings", openings, settled);
  constexpr int kWindows = 3;
  failed = failed || user.opened != kWindows * openings;
  user.refreshes = refreshes;
  if (refreshes > 0) user.call(plugin, arguments);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  std::string folder = (std::filesystem::temp_directory_path() / "soak-XXXXXX").string();
  if (::mkdtemp(folder.data()) == nullptr) return 2;
  soak(argv[1], std::atoi(argv[2]), std::atoi(argv[3]), folder);
  std::filesystem::remove_all(folder);
  return failed ? 1 : 0;
}
