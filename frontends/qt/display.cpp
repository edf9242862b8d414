#include "display.h"

#include <sys/auxv.h>
#include <xcb/xcb.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QStringList>
#include <algorithm>
#include <array>
#include <future>
#include <thread>

#include "server_answers.h"

namespace kvrnstep::qt {

namespace {

constexpr const char* kNoDisplay =
    "no display for the dialog: neither DISPLAY nor WAYLAND_DISPLAY names one that answers";

using Connection = std::shared_ptr<xcb_connection_t>;

/// Null if no X server answers, or if it does not have that screen.
Connection connectX() {
  int screen = 0;
  Connection connection(xcb_connect(nullptr, &screen), xcb_disconnect);
  if (xcb_connection_has_error(connection.get()) != 0) return nullptr;
  const auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection.get()));
  return screen < screens.rem ? connection : nullptr;
}

/// Asks on another thread, because the library waits without a limit. If the server does not
/// answer, the thread is left waiting.
Connection connectXInTime() {
  if (qEnvironmentVariableIsEmpty("DISPLAY")) return nullptr;
  std::promise<Connection> promise;
  auto answer = promise.get_future();
  std::thread([promise = std::move(promise)]() mutable { promise.set_value(connectX()); }).detach();
  return answer.wait_for(kPatience) == std::future_status::ready ? answer.get() : nullptr;
}

/// Path of the compositor's socket; empty where nothing names one.
QByteArray waylandSocketPath() {
  QByteArray name = qgetenv("WAYLAND_DISPLAY");
  if (name.isEmpty() || name.startsWith('/')) return name;
  const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
  return folder.isEmpty() ? QByteArray() : folder + '/' + name;
}

bool waylandAnswers() {
  // A request to the display, object 1: its message 0, which is 12 bytes long, asks for an event
  // from a new object 2.
  constexpr std::array<std::uint32_t, 3> kSync{1, 12U << 16U, 2};
  return serverAnswers(waylandSocketPath(),
                       {reinterpret_cast<const char*>(kSync.data()), sizeof kSync});
}

bool pluginInstalled(const QString& platform) {
  const QString file = platform == "wayland" ? QStringLiteral("wayland-generic") : platform;
  QStringList folders;
  for (const QString& folder : QCoreApplication::libraryPaths()) folders << folder + "/platforms";
  folders << qEnvironmentVariable("QT_QPA_PLATFORM_PLUGIN_PATH").split(':', Qt::SkipEmptyParts);
  return std::ranges::any_of(folders, [&](const QString& folder) {
    return QFileInfo::exists(folder + "/libq" + file + ".so");
  });
}

/// Whether Qt can read the settings of a platform, "offscreen:configfile=PATH".
bool settingsReadable(const QString& named) {
  return std::ranges::all_of(named.split(':'), [](const QString& option) {
    if (!option.startsWith("configfile=")) return true;
    QFile file(option.section('=', 1));
    return file.open(QFile::ReadOnly) && !QJsonDocument::fromJson(file.readAll()).isNull();
  });
}

/// The display of a platform that is named with its options, "offscreen:option=value"; nothing
/// where it does not answer.
std::optional<Display> displayOf(const QString& named) {
  // The others draw on a bare screen, and end the process if they find none.
  static const QStringList kKnown{"xcb", "wayland", "wayland-egl", "offscreen", "minimal", "vnc"};
  const QString platform = named.section(':', 0, 0);
  if (!kKnown.contains(platform) || !pluginInstalled(platform) || !settingsReadable(named)) {
    return std::nullopt;
  }
  Display display{named.toStdString(), nullptr};
  if (platform == "xcb") {
    display.connection = connectXInTime();
    if (display.connection == nullptr) return std::nullopt;
  } else if (platform.startsWith("wayland") && !waylandAnswers()) {
    return std::nullopt;
  }
  return display;
}

}  // namespace

std::optional<Display> findDisplay(std::string& problem) {
  if (::getauxval(AT_SECURE) != 0) {
    problem = "no dialog: Qt is not started with the rights of another user";
    return std::nullopt;
  }
  const auto wanted = qEnvironmentVariable("QT_QPA_PLATFORM").split(';', Qt::SkipEmptyParts);
  for (const QString& platform : wanted) {
    if (auto display = displayOf(platform)) return display;
  }
  if (!wanted.isEmpty()) {
    problem = "no display: the Qt platform \"" + wanted.join(';').toStdString() +
              "\" that QT_QPA_PLATFORM names cannot be used";
    return std::nullopt;
  }
  auto onX = displayOf("xcb");
  auto onWayland = displayOf("wayland");
  if (!onX && !onWayland) problem = kNoDisplay;
  // Where both answer Qt chooses.
  if (onX && onWayland) onX->platform.clear();
  return onX ? onX : onWayland;
}

}  // namespace kvrnstep::qt
