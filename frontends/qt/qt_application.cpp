#include "qt_application.h"

#include <QApplication>
#include <QThread>
#include <QToolTip>
#include <array>
#include <mutex>
#include <optional>
#include <vector>

#include "active_label.h"
#include "color_scheme.h"
#include "display.h"
#include "locale_guard.h"
#include "looks.h"

namespace kvrnstep::qt {

namespace {

bool ours = false;

/// Hides variables of the environment while Qt starts.
class HiddenVariables {
 public:
  HiddenVariables() {
    for (const char* name : kNames) {
      values_.push_back(qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name))
                                                        : std::nullopt);
      qunsetenv(name);
    }
  }
  ~HiddenVariables() {
    for (std::size_t i = 0; i < kNames.size(); ++i) {
      if (values_[i]) qputenv(kNames[i], *values_[i]);
    }
  }
  HiddenVariables(const HiddenVariables&) = delete;
  HiddenVariables& operator=(const HiddenVariables&) = delete;

 private:
  // A theme would bring a second toolkit into the host; the session and the start-up notice are
  // the host's own.
  static constexpr std::array kNames{"QT_QPA_PLATFORMTHEME", "SESSION_MANAGER",
                                     "DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"};
  std::vector<std::optional<QByteArray>> values_;
};

/// Qt keeps references to its arguments, so they live as long as the process.
struct Arguments {
  std::array<char, 16> program{"listwright"};
  std::array<char, 16> option{"-platform"};
  std::string platform;
  std::array<char*, 4> values{};
  int count = 1;
};

/// In the desktop's colours, now and when they change. A host with Qt has chosen its own.
void followDesktop(QObject* application) {
  // Of the colours that Qt begins with.
  const auto choose = [light = lightPalette()] {
    QApplication::setPalette(desktopIsDark() ? darkPalette() : light);
  };
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
  static Arguments arguments;
  arguments.platform = platform;
  arguments.values = {arguments.program.data(), arguments.option.data(), arguments.platform.data(),
                      nullptr};
  arguments.count = platform.empty() ? 1 : 3;

  const LocaleGuard locale;
  const HiddenVariables hidden;
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
  // Without this Qt loads the theme plug-in of the desktop that it finds itself on, and with it
  // that desktop's own toolkit.
  QGuiApplication::setDesktopSettingsAware(false);
  // Never deleted: a later call needs it again, and Qt cannot be started twice reliably.
  auto* application = new QApplication(arguments.count, arguments.values.data());
  QGuiApplication::setQuitOnLastWindowClosed(false);
  followDesktop(application);
  QToolTip::setFont(captionFont());
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
