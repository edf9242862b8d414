#include "clipboard.h"

#include <sys/mman.h>

#include <QByteArray>
#include <QClipboard>
#include <QEventLoop>
#include <QFile>
#include <QGuiApplication>
#include <QMimeData>
#include <QPointer>
#include <QProcess>
#include <QTimer>
#include <functional>

#include "module_folder.h"
#include "qt_application.h"

namespace kvrnstep::qt {

namespace {

constexpr const char* kKeeper = "kvrnstep-clipboard";
constexpr int kReadyWithinMilliseconds = 2000;
constexpr int kFetchedWithinMilliseconds = 300;

/// Passes the text to a program that serves the clipboard from then on, in a process that is not a
/// child of this one. The program writes a byte when it has the clipboard.
bool handToKeeper(const QString& text) {
  // A file in memory: writing to it neither blocks nor raises a signal, whatever the keeper does.
  const int memory = memfd_create(kKeeper, MFD_CLOEXEC);
  const QByteArray bytes = text.toUtf8();
  QFile input;
  if (memory < 0 ||
      !input.open(memory, QIODevice::WriteOnly | QIODevice::Unbuffered,
                  QFileDevice::AutoCloseHandle) ||
      input.write(bytes) != bytes.size()) {
    return false;
  }
  QProcess keeper;
  keeper.setStandardInputFile(QStringLiteral("/proc/self/fd/%1").arg(memory));
  keeper.setStandardErrorFile(QProcess::nullDevice());
  keeper.start(QString::fromStdString(besideThisModule(kKeeper)), QStringList());
  const bool ready = keeper.waitForReadyRead(kReadyWithinMilliseconds);
  keeper.close();
  return ready;
}

/// A text that notices when another program fetches its bytes. Our own boxes ask for a text, not
/// for bytes.
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
  // The loop goes on until the bytes have been handed over.
  offered->onFetched = [&waiting] { QTimer::singleShot(0, &waiting, &QEventLoop::quit); };
  QTimer::singleShot(kFetchedWithinMilliseconds, &waiting, &QEventLoop::quit);
  waiting.exec(QEventLoop::ExcludeUserInputEvents);
  if (!offered.isNull()) offered->onFetched = nullptr;
}

}  // namespace

void putOnClipboard(const QString& text) {
  // On X11 the owner of the clipboard must answer each program that asks for its contents. On
  // Wayland the desktop fetches a copy that outlives the owner. If the application object is the
  // host's, the host's event loop does both as long as it runs.
  if (applicationIsOurs()) {
    if (QGuiApplication::platformName() == "xcb" && handToKeeper(text)) return;
    if (isOnWayland()) return offerUntilFetched(text);
  }
  QGuiApplication::clipboard()->setText(text);
}

}  // namespace kvrnstep::qt
