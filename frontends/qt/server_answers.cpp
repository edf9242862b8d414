#include "server_answers.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <optional>

namespace kvrnstep::qt {

namespace {

/// An address of D-Bus, "unix:path=/run/bus,guid=1;tcp:host=…": the path of its first server, if
/// that has a socket here.
QByteArray socketOfBus(const QByteArray& address) {
  const QByteArray first = address.split(';').first();
  if (!first.startsWith("unix:")) return {};
  for (const QByteArray& option : first.mid(5).split(',')) {
    QByteArray value = QByteArray::fromPercentEncoding(option.mid(option.indexOf('=') + 1));
    if (option.startsWith("path=")) return value;
    if (option.startsWith("abstract=")) return '\0' + value;
  }
  return {};
}

/// A connection to a server's socket. Each wait on it has a limit.
class Conversation {
 public:
  explicit Conversation(const QByteArray& path)
      : server_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {
    sockaddr_un address{};
    const auto length = static_cast<std::size_t>(path.size());
    if (path.isEmpty() || length >= sizeof address.sun_path) return;
    address.sun_family = AF_UNIX;
    std::copy(path.begin(), path.end(), std::begin(address.sun_path));
    // A server that has room for no more clients refuses at once, because nothing here waits.
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + length);
    connected_ = ::connect(server_, reinterpret_cast<const sockaddr*>(&address), size) == 0;
  }
  ~Conversation() {
    if (server_ >= 0) ::close(server_);
  }
  Conversation(const Conversation&) = delete;
  Conversation& operator=(const Conversation&) = delete;

  /// False where there is no server.
  [[nodiscard]] bool say(QByteArrayView words) const {
    return connected_ && ::send(server_, words.data(), static_cast<std::size_t>(words.size()),
                                MSG_NOSIGNAL) == words.size();
  }
  /// The next bytes of the server; empty if none come in time.
  [[nodiscard]] QByteArray answer(const QDeadlineTimer& deadline) const {
    pollfd ready{server_, POLLIN, 0};
    std::array<char, 1024> bytes{};
    if (::poll(&ready, 1, static_cast<int>(deadline.remainingTime())) != 1) return {};
    const auto count = ::recv(server_, bytes.data(), bytes.size(), 0);
    return {bytes.data(), std::max<qsizetype>(count, 0)};
  }

 private:
  int server_;
  bool connected_ = false;
};

/// A call without arguments, as a message of D-Bus. The interface has the same name as its owner.
/// No program is started to answer it.
QByteArray busCall(quint32 serial, const QByteArray& owner, const QByteArray& object,
                   const QByteArray& method) {
  const auto number = [](auto value) {
    const auto ordered = qToLittleEndian(static_cast<quint32>(value));
    return QByteArray(reinterpret_cast<const char*>(&ordered), sizeof ordered);
  };
  const auto aligned = [](const QByteArray& bytes) {
    constexpr qsizetype kStep = 8;
    return bytes + QByteArray((kStep - bytes.size() % kStep) % kStep, '\0');
  };
  QByteArray fields;
  const auto add = [&](char field, char type, const QByteArray& text) {
    fields = aligned(fields) + field + '\1' + type + '\0' + number(text.size()) + text + '\0';
  };
  add(1, 'o', object);
  add(2, 's', owner);
  add(3, 's', method);
  add(6, 's', owner);
  return aligned("l\1\2\1" + number(0) + number(serial) + number(fields.size()) + fields);
}

/// Asks a bus for the address of the one for accessibility: an empty one where there is none, or
/// the bus has no socket here. Nothing if it does not answer.
std::optional<QByteArray> askBus(const QByteArray& address, const QDeadlineTimer& deadline) {
  const QByteArray socket = socketOfBus(address);
  if (socket.isEmpty()) return QByteArray();
  const Conversation bus(socket);
  const QByteArray user = QByteArray::number(::geteuid()).toHex();
  if (!bus.say(QByteArray(1, '\0') + "AUTH EXTERNAL " + user + "\r\n") ||
      bus.answer(deadline).isEmpty() ||
      !bus.say("BEGIN\r\n" + busCall(1, "org.freedesktop.DBus", "/org/freedesktop/DBus", "Hello") +
               busCall(2, "org.a11y.Bus", "/org/a11y/bus", "GetAddress"))) {
    return std::nullopt;
  }
  QByteArray answers;
  while (!answers.contains("Error")) {
    // A text in a message ends with a NUL.
    if (const auto at = answers.indexOf("unix:"); at >= 0) return answers.constData() + at;
    const QByteArray more = bus.answer(deadline);
    if (more.isEmpty()) return std::nullopt;
    answers += more;
  }
  return QByteArray();
}

}  // namespace

bool serverAnswers(const QByteArray& path, QByteArrayView greeting) {
  const Conversation server(path);
  return server.say(greeting) && !server.answer(QDeadlineTimer(kPatience)).isEmpty();
}

BusesThatAnswer busesThatAnswer() {
  QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
  if (address.isEmpty()) {
    // If there is none, Qt would start one.
    const QByteArray bus = qgetenv("XDG_RUNTIME_DIR") + "/bus";
    if (!QFileInfo::exists(bus)) return {};
    address = "unix:path=" + bus;
  }
  const QDeadlineTimer deadline(kPatience);
  const auto named = askBus(address, deadline);
  const QByteArray wanted = qgetenv("AT_SPI_BUS_ADDRESS");
  const QByteArray accessibility = wanted.isEmpty() ? named.value_or("") : wanted;
  return {named.has_value(), askBus(accessibility, deadline).has_value()};
}

}  // namespace kvrnstep::qt
