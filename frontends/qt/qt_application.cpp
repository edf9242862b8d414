#include "qt_application.h"

#include <QAccessible>
#include <QApplication>
#include <QThread>
#include <array>
#include <mutex>
#include <utility>
#include <vector>

#include "active_label.h"
#include "color_scheme.h"
#include "display.h"
#include "locale_guard.h"
#include "looks.h"
#include "server_answers.h"
#include "window_style.h"

namespace kvrnstep::qt {

namespace {

bool ours = false;

/// Hides variables of the environment while Qt starts.
class HiddenVariables {
 public:
  HiddenVariables() {
    // A theme would load a second toolkit into the host. The session and the start-up notice belong
    // to the host.
    for (const char* name : {"QT_QPA_PLATFORMTHEME", "SESSION_MANAGER", "DESKTOP_STARTUP_ID",
                             "XDG_ACTIVATION_TOKEN"}) {
      if (qEnvironmentVariableIsSet(name)) values_.emplace_back(name, qgetenv(name));
      qunsetenv(name);
    }
  }
  /// Makes Qt find no such bus. Qt looks for the bus once, and would wait for one that does not
  /// answer.
  void hideBus(const char* name) {
    values_.emplace_back(name, qgetenv(name));
    qputenv(name, "unix:path=/dev/null");
  }
  ~HiddenVariables() {
    for (const auto& [name, value] : values_) {
      if (value.isNull()) {
        qunsetenv(name);
      } else {
        qputenv(name, value);
      }
    }
  }
  HiddenVariables(const HiddenVariables&) = delete;
  HiddenVariables& operator=(const HiddenVariables&) = delete;

 private:
  std::vector<std::pair<const char*, QByteArray>> values_;
};

/// Uses the desktop's colours, now and when they change. A host with Qt has chosen its own.
void followDesktop(QObject* application) {
  const auto choose = [] { QApplication::setPalette(paletteOf(desktopScheme())); };
  choose();
  // Several settings may change at once.
  constexpr int kMilliseconds = 50;
  auto* bell = new QTimer(application);
  bell->setSingleShot(true);
  bell->setInterval(kMilliseconds);
  QObject::connect(bell, &QTimer::timeout, application, choose);
  ringWhenDesktopChanges(*bell);
}

void createApplication(const std::string& platform) {
  // Qt keeps references to its arguments, so they live as long as the process.
  static std::array<std::string, 3> texts{"listwright", "-platform"};
  texts[2] = platform;
  static std::array<char*, 4> arguments{texts[0].data(), texts[1].data(), texts[2].data()};
  static int count = platform.empty() ? 1 : 3;

  const LocaleGuard locale;
  HiddenVariables hidden;
  const BusesThatAnswer buses = busesThatAnswer();
  if (!buses.session) hidden.hideBus("DBUS_SESSION_BUS_ADDRESS");
  if (!buses.accessibility) hidden.hideBus("AT_SPI_BUS_ADDRESS");
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  // Without this Qt loads the theme plug-in of the desktop that it finds itself on, and with it
  // that desktop's own toolkit.
  QGuiApplication::setDesktopSettingsAware(false);
  QApplication::setStyle(new WindowStyle);
  // Never deleted: a later call needs it again, and Qt cannot be started twice reliably.
  auto* application = new QApplication(count, arguments.data());
  // Now, because Qt would otherwise look for this bus only when a window is shown.
  if (!buses.accessibility) QAccessible::setRootObject(application);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  followDesktop(application);
  // Otherwise Qt finds the font that it would use, for boxes that have another one soon after.
  QApplication::setFont(captionFont());
  ours = true;
}

}  // namespace

bool provideApplication(std::string& problem) {
  static std::mutex one;
  const std::lock_guard lock(one);
  if (QCoreApplication::instance() == nullptr) {
    const auto display = findDisplay(problem);
    if (!display) return false;
    createApplication(display->platform);
  }
  announceLabelsAndGroups();
  const auto* application = qobject_cast<QApplication*>(QCoreApplication::instance());
  if (application == nullptr) {
    problem = "the host's Qt application cannot show widgets";
    return false;
  }
  if (application->thread() != QThread::currentThread()) {
    problem = "Qt runs on another thread of the host";
    return false;
  }
  return true;
}

bool applicationIsOurs() {
  return ours;
}

bool isOnWayland() {
  return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

}  // namespace kvrnstep::qt
