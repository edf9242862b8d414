// Serves the clipboard with the text that comes in on standard input, until another program takes
// the clipboard over. Writes one byte to standard output when it has the clipboard, and goes on in
// a child, for which nobody has to wait.

#include <unistd.h>

#include <QByteArray>
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace {

/// Undoes what this process has inherited: signals that the host blocks or ignores, and files that
/// it has left open.
void forgetHost() {
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  for (int number = 1; number < NSIG; ++number) signal(number, SIG_DFL);
  close_range(STDERR_FILENO + 1, ~0U, 0);
}

QByteArray readInput() {
  QFile input;
  return input.open(stdin, QIODevice::ReadOnly) ? input.readAll() : QByteArray();
}

/// Goes on in a child, and returns where the child writes its byte. The parent passes the byte on,
/// and ends.
int continueInChild() {
  std::array<int, 2> ends{-1, -1};
  if (pipe(ends.data()) != 0) _exit(EXIT_FAILURE);
  const pid_t child = fork();
  close(ends[child == 0 ? 0 : 1]);
  if (child == 0) return ends[1];
  char ready = 0;
  const bool passedOn =
      child > 0 && read(ends[0], &ready, 1) == 1 && write(STDOUT_FILENO, &ready, 1) == 1;
  _exit(passedOn ? EXIT_SUCCESS : EXIT_FAILURE);
}

}  // namespace

int main(int argc, char** argv) {
  forgetHost();
  const QByteArray text = readInput();
  const int parent = continueInChild();
  // Standard input would keep the text a second time.
  if (setsid() < 0 || chdir("/") != 0 || std::freopen("/dev/null", "r", stdin) == nullptr ||
      std::freopen("/dev/null", "w", stdout) == nullptr) {
    return EXIT_FAILURE;
  }

  // No theme of the desktop is loaded, and the desktop's session does not manage this program.
  for (const char* name : {"QT_QPA_PLATFORMTHEME", "SESSION_MANAGER"}) qunsetenv(name);
  qputenv("QT_QPA_PLATFORM", "xcb");
  QGuiApplication::setDesktopSettingsAware(false);
  const QGuiApplication application(argc, argv);
  QClipboard* clipboard = QGuiApplication::clipboard();
  clipboard->setText(QString::fromUtf8(text));
  if (!clipboard->ownsClipboard() || write(parent, "\n", 1) != 1) return EXIT_FAILURE;
  close(parent);

  QObject::connect(clipboard, &QClipboard::dataChanged, clipboard, [clipboard] {
    if (!clipboard->ownsClipboard()) QCoreApplication::quit();
  });
  return QGuiApplication::exec();
}
