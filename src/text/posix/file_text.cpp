#include "text/codepage.h"

namespace kvrnstep::text {

std::string toBytes(std::u16string_view text) {
  return toUtf8(text);
}

std::u16string fromAnsi(std::string_view bytes) {
  return textFromWindows1252(bytes);
}

}  // namespace kvrnstep::text
