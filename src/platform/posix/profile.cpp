#include "platform/profile.h"

namespace kvrnstep::platform::native {

std::optional<std::string> profileString(std::string_view, std::string_view, std::string_view,
                                         const std::u16string&) {
  return std::nullopt;
}

std::optional<bool> writeProfileString(std::string_view, std::string_view, std::string_view,
                                       const std::u16string&) {
  return std::nullopt;
}

}  // namespace kvrnstep::platform::native
