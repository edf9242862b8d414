#include "display.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>
#include <cstring>
#include <string_view>

namespace kvrnstep::qt {

namespace {

constexpr const char* kNoDisplay =
    "no display: neither DISPLAY nor WAYLAND_DISPLAY names one that answers";

bool displayAnswersX() {
  if (qEnvironmentVariableIsEmpty("DISPLAY")) return false;
  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  const bool answers = xcb_connection_has_error(connection) == 0;
  xcb_disconnect(connection);
  return answers;
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
  std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
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
  for (const QString& folder : folders) {
    if (QFileInfo::exists(folder + "/libq" + file + ".so")) return true;
  }
  return false;
}

bool usable(const QString& platform) {
  if (!pluginInstalled(platform)) return false;
  if (platform == "xcb") return displayAnswersX();
  if (platform.startsWith("wayland")) return displayAnswersWayland();
  return true;
}

/// The platforms that the environment wants, "offscreen:option=value;xcb", without their options.
QStringList wantedPlatforms() {
  QStringList names;
  const auto wanted = qEnvironmentVariable("QT_QPA_PLATFORM").split(';', Qt::SkipEmptyParts);
  for (const QString& platform : wanted) names << platform.section(':', 0, 0);
  return names;
}

}  // namespace

std::optional<std::string> findPlatform(std::string& problem) {
  if (const QStringList wanted = wantedPlatforms(); !wanted.isEmpty()) {
    for (const QString& platform : wanted) {
      if (usable(platform)) return std::string();
    }
    problem = "no display: the Qt platform \"" + wanted.join(';').toStdString() +
              "\" that QT_QPA_PLATFORM names cannot be used";
    return std::nullopt;
  }
  const bool onX = usable("xcb");
  const bool onWayland = usable("wayland");
  if (onX && onWayland) return std::string();
  if (onX) return "xcb";
  if (onWayland) return "wayland";
  problem = kNoDisplay;
  return std::nullopt;
}

}  // namespace kvrnstep::qt
