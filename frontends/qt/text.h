#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace kvrnstep::qt {

/// Unit by unit: no byte-order mark is looked for and no half surrogate pair is replaced.
inline QString toQt(std::u16string_view text) {
  return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

inline std::u16string fromQt(const QString& text) {
  return text.toStdU16String();
}

inline QString toQt(std::string_view ascii) {
  return QString::fromLatin1(ascii.data(), static_cast<qsizetype>(ascii.size()));
}

}  // namespace kvrnstep::qt
