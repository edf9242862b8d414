#include "display.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>
#include <algorithm>
#include <iterator>
#include <string_view>

namespace kvrnstep::qt {

namespace {

constexpr const char* kNoDisplay =
    "no display for the dialog: neither DISPLAY nor WAYLAND_DISPLAY names one that answers";

using Connection = std::shared_ptr<xcb_connection_t>;

/// Null where no X server answers.
Connection connectX() {
  if (qEnvironmentVariableIsEmpty("DISPLAY")) return nullptr;
  Connection connection(xcb_connect(nullptr, nullptr), xcb_disconnect);
  return xcb_connection_has_error(connection.get()) == 0 ? connection : nullptr;
}

/// Path of the compositor's socket; empty where nothing names one.
QByteArray waylandSocketPath() {
  QByteArray name = qgetenv("WAYLAND_DISPLAY");
  if (name.isEmpty() || name.startsWith('/')) return name;
  const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
  return folder.isEmpty() ? QByteArray() : folder + '/' + name;
}

bool displayAnswersWayland() {
  const QByteArray path = waylandSocketPath();
  sockaddr_un address{};
  if (path.isEmpty() || static_cast<std::size_t>(path.size()) >= sizeof address.sun_path) {
    return false;
  }
  address.sun_family = AF_UNIX;
  std::copy(path.begin(), path.end(), std::begin(address.sun_path));
  const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (socket < 0) return false;
  const bool answers =
      connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  close(socket);
  return answers;
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

/// The display of that platform; nothing where it does not answer.
std::optional<Display> displayOf(const QString& platform) {
  if (!pluginInstalled(platform)) return std::nullopt;
  Display display{platform.toStdString(), nullptr};
  if (platform == "xcb") {
    display.connection = connectX();
    if (display.connection == nullptr) return std::nullopt;
  } else if (platform.startsWith("wayland") && !displayAnswersWayland()) {
    return std::nullopt;
  }
  return display;
}

/// The platforms that QT_QPA_PLATFORM names, "offscreen:option=value;xcb", without their options.
QStringList wantedPlatforms() {
  QStringList names;
  const auto wanted = qEnvironmentVariable("QT_QPA_PLATFORM").split(';', Qt::SkipEmptyParts);
  for (const QString& platform : wanted) names << platform.section(':', 0, 0);
  return names;
}

}  // namespace

std::optional<Display> findDisplay(std::string& problem) {
  const QStringList wanted = wantedPlatforms();
  for (const QString& platform : wanted) {
    // Qt reads the variable itself, with the platform's options.
    if (auto display = displayOf(platform)) return Display{"", display->connection};
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
