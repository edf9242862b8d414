#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kvrnstep::text {

/// The text in the system's code page. Nothing when a character has no place of its own there: one
/// that merely looks alike will not do.
std::optional<std::string> toAnsi(std::u16string_view text);

}  // namespace kvrnstep::text
