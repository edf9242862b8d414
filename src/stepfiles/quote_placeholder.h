#pragma once

#include <string>
#include <string_view>

#include "text/text.h"

/// Stored texts are enclosed in double quotes; inside them a token stands for a double quote.
namespace kvrnstep::stepfiles {

inline constexpr std::u16string_view kQuotePlaceholder = u"<WXEQUOTE>";

inline std::u16string withoutQuotes(std::u16string_view text) {
  return text::ReplaceText(text, u"\"", kQuotePlaceholder);
}

inline std::u16string withQuotes(std::u16string_view text) {
  return text::ReplaceText(text, kQuotePlaceholder, u"\"");
}

}  // namespace kvrnstep::stepfiles
