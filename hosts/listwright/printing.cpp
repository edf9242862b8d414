#include "printing.h"

#include <cstdio>
#include <stdexcept>
#include <string_view>

#include "program.h"
#include "utf8.h"

namespace listwright {

namespace {

/// The text with `end` in place of every CR LF and LF.
std::string withLineEnds(std::string_view text, std::string_view end) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.substr(i, 2) == "\r\n") ++i;
    if (text[i] == '\n') {
      result += end;
    } else {
      result += text[i];
    }
  }
  return result;
}

std::string twoHexDigits(unsigned number) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  return {kDigits[number / 16 % 16], kDigits[number % 16]};
}

/// The text with all that commands a terminal written out as Vim and less do: ^[, <U+009B>, and
/// <9B> for a byte that is no UTF-8. The characters in `kept` stay.
std::string visible(std::string_view bytes, std::string_view kept) {
  std::string result;
  while (!bytes.empty()) {
    const hosts::Decoded decoded = hosts::decodeUtf8(bytes);
    const std::string_view character = bytes.substr(0, decoded.length);
    const char32_t point = decoded.point;
    bytes.remove_prefix(decoded.length);
    if ((point < 0x20 || point == 0x7F) && kept.find(character) == std::string_view::npos) {
      result += {'^', static_cast<char>(point ^ 0x40U)};
    } else if (point >= 0x80 && point < 0xA0) {
      result += "<U+00" + twoHexDigits(point) + '>';
    } else if (decoded.broken()) {
      result += '<' + twoHexDigits(static_cast<unsigned char>(character.front())) + '>';
    } else {
      result += character;
    }
  }
  return result;
}

}  // namespace

void print(const std::string& list, const PrintFormat& format) {
  std::string text = withLineEnds(list, "\n");
  if (!format.exact && !text.ends_with('\n')) text += '\n';
  if (hosts::outputIsTerminal()) text = visible(text, "\n\t");
  if (format.crLf) text = withLineEnds(text, "\r\n");
  const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (!written || std::fflush(stdout) != 0) throw std::runtime_error("cannot write the list");
}

void complain(const std::string& problem) {
  std::fprintf(stderr, "listwright: %s\n", visible(problem, "").c_str());
  hosts::showProblem(problem);
}

}  // namespace listwright
