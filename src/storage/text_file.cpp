#include "storage/text_file.h"

#include "text/codepage.h"

namespace kvrnstep::storage {

namespace {
constexpr std::string_view kLineEnd = "\r\n";
}

bool WriteTextFile(const std::u16string& sFile, std::u16string_view sText, std::size_t largest) {
  std::string bytes = text::toBytes(sText);
  bytes += kLineEnd;
  return platform::replaceFile(sFile, bytes, largest);
}

std::u16string ReadTextFile(const std::u16string& sFile) {
  const auto content = platform::readFile(sFile);
  if (!content) return {};
  std::string_view bytes = *content;
  if (bytes.ends_with(kLineEnd)) bytes.remove_suffix(kLineEnd.size());
  return text::fromBytes(bytes);
}

}  // namespace kvrnstep::storage
