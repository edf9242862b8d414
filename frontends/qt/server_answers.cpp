#include "server_answers.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QFileInfo>
#include <algorithm>
#include <cstddef>
#include <iterator>

namespace kvrnstep::qt {

namespace {

/// An address of D-Bus, "unix:path=/run/bus,guid=1;tcp:host=…": the path of its first server, if
/// that has a socket here.
QByteArray socketOfBus(const QByteArray& address) {
  const QByteArray first = address.split(';').first();
  if (!first.startsWith("unix:")) return {};
  for (const QByteArray& option : first.mid(5).split(',')) {
    const QByteArray value = QByteArray::fromPercentEncoding(option.mid(option.indexOf('=') + 1));
    if (option.startsWith("path=")) return value;
    if (option.startsWith("abstract=")) return '\0' + value;
  }
  return {};
}

}  // namespace

bool serverAnswers(const QByteArray& path, QByteArrayView greeting) {
  sockaddr_un address{};
  const auto length = static_cast<std::size_t>(path.size());
  if (path.isEmpty() || length >= sizeof address.sun_path) return false;
  address.sun_family = AF_UNIX;
  std::copy(path.begin(), path.end(), std::begin(address.sun_path));
  const int server = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (server < 0) return false;
  // What has room for no more clients refuses at once, because nothing here waits.
  const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + length);
  pollfd answer{server, POLLIN, 0};
  char byte = 0;
  const bool answers = ::connect(server, reinterpret_cast<const sockaddr*>(&address), size) == 0 &&
                       ::send(server, greeting.data(), static_cast<std::size_t>(greeting.size()),
                              MSG_NOSIGNAL) == greeting.size() &&
                       ::poll(&answer, 1, static_cast<int>(kPatience.count())) == 1 &&
                       ::recv(server, &byte, 1, 0) == 1;
  ::close(server);
  return answers;
}

bool sessionBusAnswers() {
  QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
  if (address.isEmpty()) {
    // Where there is none Qt would start one.
    const QByteArray bus = qgetenv("XDG_RUNTIME_DIR") + "/bus";
    if (!QFileInfo::exists(bus)) return false;
    address = "unix:path=" + bus;
  }
  const QByteArray socket = socketOfBus(address);
  if (socket.isEmpty()) return true;
  const QByteArray user = QByteArray::number(::geteuid()).toHex();
  return serverAnswers(socket, QByteArray(1, '\0') + "AUTH EXTERNAL " + user + "\r\n");
}

}  // namespace kvrnstep::qt
