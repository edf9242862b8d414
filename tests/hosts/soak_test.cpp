// The dialog with its preview and its editors opened over and over in one process: after the first
// hundred times memory does not grow. soak_test FRONTEND OPENINGS

#include <malloc.h>

#include <array>
#include <cstdio>
#include <cstdlib>

#include "kvrnstep/listwright.hpp"
#include "temporary_folder.h"
#include "user.h"
#ifdef WITH_QT
#include <QPixmapCache>
#endif

namespace {

using namespace kvrnstep;

/// What the process holds, in bytes that are allocated and in pages, those of files aside: code is
/// read from the disk when it first runs.
struct Memory {
  std::size_t bytes = 0;
  std::size_t pages = 0;

  static Memory now() {
    Memory held{.bytes = ::mallinfo2().uordblks};
    std::size_t size = 0;
    std::size_t ofFiles = 0;
    std::ifstream("/proc/self/statm") >> size >> held.pages >> ofFiles;
    held.pages -= ofFiles;
    return held;
  }
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  constexpr int kSettled = 100;
  const int openings = std::atoi(argv[2]);
  const tests::TemporaryFolder folder;
  const auto plugin = Listwright::load(PLUGIN_LIBRARY);
  const std::string steps = folder.native("");
  const std::string settings = folder.native("steps.ini");
  kvrnstep_dialog arguments = kDialogDefaults;
  arguments.sPthStepFolder = steps.c_str();
  arguments.SEC_APP_NAME = "Listwright";
  arguments.s_IniPathAndName = settings.c_str();
  bool failed = false;
  std::size_t turn = 0;
  tests::User user([&](tests::User& self) {
#ifdef WITH_QT
    // It fills up with pictures of scroll bars, to its limit of 10 MB.
    QPixmapCache::setCacheLimit(0);
#endif
    // The preview comes and goes; the windows close by the empty ones.
    constexpr std::array<std::u16string_view, 7> kMenu{
        u"mnuOptions(5)", u"mnuEdits(0)", u"", u"mnuEdits(3)", u"", u"mnuOptions(5)", u""};
    const std::u16string_view entry = kMenu.at(turn++ % kMenu.size());
    if (entry.empty()) {
      self.stage->closeTopmost();
    } else if (!self.perform("menu", entry)) {
      failed = true;
    }
  });
  user.use(openLibrary(PLUGIN_LIBRARY), argv[1]);
  std::string list;
  Memory settled;
  for (int i = 0; i < openings; ++i) {
    if (i == kSettled) settled = Memory::now();
    plugin.ShowListwrightDialog(list, arguments);
  }
  const Memory end = Memory::now();
  std::printf("allocated %zu, then %zu bytes; resident %zu, then %zu pages\n", settled.bytes,
              end.bytes, settled.pages, end.pages);
  // Less than the smallest object a time; a toolkit's hash tables change in size. The system counts
  // pages in batches.
  constexpr Memory kToSpare{1024, 64};
  failed = failed || end.bytes > settled.bytes + kToSpare.bytes ||
           end.pages > settled.pages + kToSpare.pages || user.opened != 3 * openings;
  return failed ? 1 : 0;
}
