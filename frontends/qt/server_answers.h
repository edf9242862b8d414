#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <chrono>

namespace kvrnstep::qt {

/// How long a server may take to answer. Qt itself would wait for ever.
inline constexpr std::chrono::milliseconds kPatience(900);

/// Whether a server answers a greeting.
/// @param path of its socket; a NUL at the beginning makes it an abstract one, an empty one none
bool serverAnswers(const QByteArray& path, QByteArrayView greeting);

struct BusesThatAnswer {
  bool session = false;        ///< the session bus exists and answers
  bool accessibility = false;  ///< the bus for accessibility answers, or there is none
};
/// Asks the buses that Qt would wait for.
BusesThatAnswer busesThatAnswer();

}  // namespace kvrnstep::qt
