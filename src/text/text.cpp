#include "text/text.h"

#include <algorithm>

namespace kvrnstep::text {

namespace {

constexpr unsigned kEndOfAscii = 0x80;

constexpr char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

}  // namespace

std::u16string_view trimBlanks(std::u16string_view text) {
  const auto first = text.find_first_not_of(u' ');
  if (first == std::u16string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

std::u16string_view StripAtNull(std::u16string_view text) {
  return text.substr(0, text.find(u'\0'));
}

std::u16string ReplaceText(std::u16string_view sText, std::u16string_view sFind,
                           std::u16string_view sWith) {
  if (sFind.empty()) return std::u16string(sText);
  std::u16string result;
  std::size_t done = 0;
  for (auto at = sText.find(sFind); at != std::u16string_view::npos; at = sText.find(sFind, done)) {
    result += sText.substr(done, at - done);
    result += sWith;
    done = at + sFind.size();
  }
  result += sText.substr(done);
  return result;
}

bool equalIgnoringCase(std::string_view one, std::string_view other) {
  return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                    [](char a, char b) { return lower(a) == lower(b); });
}

bool isAscii(std::string_view bytes) {
  return std::ranges::all_of(bytes, [](unsigned char byte) { return byte < kEndOfAscii; });
}

std::string toAscii(std::u16string_view text) {
  std::string ascii(text.size(), '?');
  std::transform(text.begin(), text.end(), ascii.begin(),
                 [](char16_t c) { return c < kEndOfAscii ? static_cast<char>(c) : '?'; });
  return ascii;
}

std::u16string fromAscii(std::string_view ascii) {
  return {ascii.begin(), ascii.end()};
}

std::u16string joined(const std::vector<std::u16string>& texts) {
  std::u16string all;
  for (const std::u16string& text : texts) {
    if (&text != &texts.front()) all += u' ';
    all += text;
  }
  return all;
}

std::u16string withoutMnemonic(std::u16string_view caption) {
  std::u16string plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == u'&' && ++i == caption.size()) break;
    plain += caption[i];
  }
  return plain;
}

}  // namespace kvrnstep::text
