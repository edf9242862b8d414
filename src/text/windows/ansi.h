#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kvrnstep::text {

/// The text in the system's code page. Nothing when the code page lacks one of its characters; a
/// character that looks similar does not count.
std::optional<std::string> toAnsi(std::u16string_view text);

}  // namespace kvrnstep::text
