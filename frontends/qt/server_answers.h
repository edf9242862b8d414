#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <chrono>

namespace kvrnstep::qt {

/// How long a server may take to answer. Qt itself would wait for ever.
inline constexpr std::chrono::milliseconds kPatience(900);

/// Whether a server says anything when it is greeted.
/// @param path of its socket; a NUL at the beginning makes it an abstract one, an empty one none
bool serverAnswers(const QByteArray& path, QByteArrayView greeting);

struct BusesThatAnswer {
  bool session = false;        ///< there is one, too
  bool accessibility = false;  ///< or there is none
};
/// Asks the buses that Qt would wait for.
BusesThatAnswer busesThatAnswer();

}  // namespace kvrnstep::qt
