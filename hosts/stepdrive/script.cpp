#include "script.h"

#include <algorithm>
#include <charconv>

#include "utf8.h"

namespace stepdrive {

namespace {

constexpr std::u16string_view kBlanks = u" \t";

/// Takes the next character off a quoted word.
char16_t taken(std::u16string_view& rest) {
  if (rest.empty()) throw ScriptError("a quoted word has no end");
  const char16_t first = rest.front();
  rest.remove_prefix(1);
  return first;
}

char16_t codeUnit(std::u16string_view& rest) {
  constexpr std::size_t kDigits = 4;
  const std::string digits = hosts::toUtf8(rest.substr(0, kDigits));
  unsigned value = 0;
  const auto [stop, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
  if (error != std::errc() || stop != digits.data() + kDigits) {
    throw ScriptError("\\u wants four hexadecimal digits");
  }
  rest.remove_prefix(kDigits);
  return static_cast<char16_t>(value);
}

char16_t escaped(std::u16string_view& rest) {
  const char16_t letter = taken(rest);
  if (letter == u'u') return codeUnit(rest);
  const auto* escape = std::ranges::find(kEscapes, letter, &Escape::letter);
  if (escape != kEscapes.end()) return escape->character;
  throw ScriptError("unknown escape \\" + hosts::toUtf8({&letter, 1}));
}

/// Takes a word off a line that begins with a quote.
std::u16string quotedWord(std::u16string_view& rest) {
  std::u16string word;
  taken(rest);
  for (char16_t next = taken(rest); next != u'"'; next = taken(rest)) {
    word += next == u'\\' ? escaped(rest) : next;
  }
  if (!rest.empty() && kBlanks.find(rest.front()) == std::u16string_view::npos) {
    throw ScriptError("a blank is missing behind a quoted word");
  }
  return word;
}

}  // namespace

std::vector<std::u16string> splitWords(const std::string& line) {
  const std::u16string text = hosts::fromUtf8(line);
  std::vector<std::u16string> words;
  for (std::u16string_view rest = text;;) {
    rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
    if (rest.empty()) return words;
    if (rest.front() == u'"') {
      words.push_back(quotedWord(rest));
    } else {
      words.emplace_back(rest.substr(0, rest.find_first_of(kBlanks)));
      rest.remove_prefix(words.back().size());
    }
  }
}

std::optional<ScriptLine> Script::next() {
  std::string line;
  while (std::getline(input_, line)) {
    ++number_;
    if (line.ends_with('\r')) line.pop_back();
    if (line.starts_with('#')) continue;
    auto words = splitWords(line);
    if (!words.empty()) return ScriptLine{number_, line, std::move(words)};
  }
  return std::nullopt;
}

}  // namespace stepdrive
