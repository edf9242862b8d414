#include "platform/posix/native_path.h"

#include "text/codepage.h"

namespace kvrnstep::platform {

std::string nativePath(const std::u16string& path) {
  if (path.find(u'\0') != std::u16string::npos) return {};
  return text::toUtf8(path);
}

std::string folderPart(const std::string& path) {
  return path.substr(0, path.rfind('/') + 1);
}

}  // namespace kvrnstep::platform
