#pragma once

#include <string>
#include <string_view>

#include "kvrnstep/driving.hpp"

namespace stepdrive {

/// A text as the output writes it: in double quotes, control characters escaped, the rest UTF-8.
std::string inQuotes(std::u16string_view text);

/// True and False, decimal numbers, quoted texts, bare words.
std::string formatted(const kvrnstep::driving::Value& value);

}  // namespace stepdrive
