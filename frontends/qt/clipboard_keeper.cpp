// Serves the clipboard with the text that comes in on standard input, until another program takes
// the clipboard over. Writes one byte to standard output when it owns the clipboard.

#include <fcntl.h>
#include <unistd.h>

#include <QByteArray>
#include <QClipboard>
#include <QGuiApplication>
#include <array>
#include <cerrno>
#include <cstdlib>

namespace {

/// Files of the host that it happened to leave open must not stay open for as long as we run.
void closeInherited() {
  close_range(STDERR_FILENO + 1, ~0U, 0);
}

QByteArray readInput() {
  QByteArray bytes;
  std::array<char, 65536> buffer{};
  for (;;) {
    const ssize_t count = read(STDIN_FILENO, buffer.data(), buffer.size());
    if (count > 0) {
      bytes.append(buffer.data(), static_cast<qsizetype>(count));
    } else if (count == 0 || errno != EINTR) {
      return bytes;
    }
  }
}

/// The parent ends at once, so whoever started us has nobody to wait for.
bool detach() {
  const pid_t child = fork();
  if (child < 0) return false;
  if (child > 0) _exit(EXIT_SUCCESS);
  return setsid() >= 0 && chdir("/") == 0;
}

void reportReady() {
  const char ready = '\n';
  if (write(STDOUT_FILENO, &ready, 1) != 1) std::exit(EXIT_FAILURE);
}

void closeStandardFiles() {
  const int null = open("/dev/null", O_RDWR);
  for (const int file : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(null, file);
  if (null > STDERR_FILENO) close(null);
}

}  // namespace

int main(int argc, char** argv) {
  closeInherited();
  const QByteArray text = readInput();
  if (!detach()) return EXIT_FAILURE;

  // Neither a desktop's theme nor its session has any business here.
  for (const char* name : {"QT_QPA_PLATFORMTHEME", "SESSION_MANAGER"}) qunsetenv(name);
  qputenv("QT_QPA_PLATFORM", "xcb");
  QGuiApplication::setDesktopSettingsAware(false);
  const QGuiApplication application(argc, argv);
  QClipboard* clipboard = QGuiApplication::clipboard();
  clipboard->setText(QString::fromUtf8(text));
  if (!clipboard->ownsClipboard()) return EXIT_FAILURE;
  reportReady();
  closeStandardFiles();

  QObject::connect(clipboard, &QClipboard::dataChanged, clipboard, [clipboard] {
    if (!clipboard->ownsClipboard()) QCoreApplication::quit();
  });
  return QGuiApplication::exec();
}
