#pragma once

#include <optional>
#include <string_view>

namespace kvrnstep::platform {

/// The icon that the plug-in carries under that number, as the bytes of an icon file; they stay
/// as long as the plug-in. Nothing where there is none.
std::optional<std::string_view> iconFile(int number);

}  // namespace kvrnstep::platform
