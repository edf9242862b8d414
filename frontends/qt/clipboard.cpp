#include "clipboard.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QByteArray>
#include <QClipboard>
#include <QEventLoop>
#include <QFile>
#include <QGuiApplication>
#include <QMimeData>
#include <QPointer>
#include <QTimer>
#include <array>
#include <cerrno>
#include <csignal>
#include <functional>
#include <string>
#include <utility>

#include "module_folder.h"
#include "qt_application.h"

namespace kvrnstep::qt {

namespace {

constexpr const char* kKeeper = "kvrnstep-clipboard";
constexpr int kReadyWithinMilliseconds = 2000;
constexpr int kFetchedWithinMilliseconds = 300;

/// Starts the keeper, which leaves at once a child of its own behind. A signal mask or handling
/// that the host has chosen for itself is not handed down.
bool startKeeper(const std::string& path, int input, int output) {
  posix_spawn_file_actions_t files;
  posix_spawnattr_t attributes;
  posix_spawn_file_actions_init(&files);
  posix_spawnattr_init(&attributes);
  posix_spawn_file_actions_adddup2(&files, input, STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  sigset_t none;
  sigset_t all;
  sigemptyset(&none);
  sigfillset(&all);
  posix_spawnattr_setsigmask(&attributes, &none);
  posix_spawnattr_setsigdefault(&attributes, &all);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);

  std::string name = kKeeper;
  const std::array<char*, 2> arguments{name.data(), nullptr};
  pid_t child = 0;
  const bool started =
      posix_spawn(&child, path.c_str(), &files, &attributes, arguments.data(), environ) == 0;
  posix_spawn_file_actions_destroy(&files);
  posix_spawnattr_destroy(&attributes);
  if (!started) return false;
  while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
  }
  return true;
}

bool becomesReadable(int file) {
  pollfd waiting{file, POLLIN, 0};
  int ready = 0;
  do {
    ready = poll(&waiting, 1, kReadyWithinMilliseconds);
  } while (ready < 0 && errno == EINTR);
  char byte = 0;
  return ready == 1 && read(file, &byte, 1) == 1;
}

bool adopt(QFile& file, int number, QIODevice::OpenMode how) {
  return number >= 0 &&
         file.open(number, how | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
}

/// Hands the text to a program of its own that serves the clipboard from then on.
bool handToKeeper(const QString& text) {
  const std::string path = besideThisModule(kKeeper);
  if (path.empty()) return false;
  // A file in memory: writing to it neither blocks nor raises a signal, whatever the keeper does.
  const int memory = memfd_create(kKeeper, MFD_CLOEXEC);
  std::array<int, 2> ends{-1, -1};
  QFile input;
  QFile readEnd;
  QFile writeEnd;
  if (!adopt(input, memory, QIODevice::WriteOnly) || pipe2(ends.data(), O_CLOEXEC) != 0 ||
      !adopt(readEnd, ends[0], QIODevice::ReadOnly) ||
      !adopt(writeEnd, ends[1], QIODevice::WriteOnly)) {
    return false;
  }
  const QByteArray bytes = text.toUtf8();
  if (input.write(bytes) != bytes.size() || !input.seek(0)) return false;
  if (!startKeeper(path, input.handle(), writeEnd.handle())) return false;
  writeEnd.close();
  return becomesReadable(readEnd.handle());
}

/// A text that tells when its bytes are fetched. Boxes of our own only look at it.
class FetchedText : public QMimeData {
 public:
  explicit FetchedText(const QString& text) { setText(text); }

  std::function<void()> onFetched;

 protected:
  [[nodiscard]] QVariant retrieveData(const QString& format, QMetaType type) const override {
    if (onFetched && type.id() == QMetaType::QByteArray) onFetched();
    return QMimeData::retrieveData(format, type);
  }
};

/// Offers the text, and waits until the desktop has its copy of it.
void offerUntilFetched(const QString& text) {
  QEventLoop waiting;
  const QPointer<FetchedText> offered(new FetchedText(text));
  QGuiApplication::clipboard()->setMimeData(offered);
  if (offered.isNull()) return;
  // Once it has been handed over, not before.
  offered->onFetched = [&waiting] { QTimer::singleShot(0, &waiting, &QEventLoop::quit); };
  QTimer::singleShot(kFetchedWithinMilliseconds, &waiting, &QEventLoop::quit);
  waiting.exec(QEventLoop::ExcludeUserInputEvents);
  if (!offered.isNull()) offered->onFetched = nullptr;
}

}  // namespace

void putOnClipboard(const QString& text) {
  // On X11 the owner of the clipboard has to answer whoever wants its contents, and on Wayland
  // desktops fetch a copy that outlives the owner. Where the application is the host's, its own
  // event loop sees to both as long as it runs.
  if (applicationIsOurs()) {
    if (QGuiApplication::platformName() == "xcb" && handToKeeper(text)) return;
    if (isOnWayland()) return offerUntilFetched(text);
  }
  QGuiApplication::clipboard()->setText(text);
}

}  // namespace kvrnstep::qt
