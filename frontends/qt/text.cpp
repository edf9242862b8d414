#include "text.h"

namespace kvrnstep::qt {

QString withoutMnemonic(std::u16string_view caption) {
  QString plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == u'&' && ++i == caption.size()) break;
    plain += QChar(caption[i]);
  }
  return plain;
}

}  // namespace kvrnstep::qt
