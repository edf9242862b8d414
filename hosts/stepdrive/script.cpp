#include "script.h"

#include <algorithm>
#include <charconv>

#include "utf8.h"

namespace stepdrive {

namespace {

bool isBlank(char c) {
  return c == ' ' || c == '\t';
}

/// Reads the words of one line.
class Splitter {
 public:
  explicit Splitter(const std::string& line) : line_(line) {}

  std::vector<std::u16string> words() {
    std::vector<std::u16string> result;
    while (skipBlanks()) result.push_back(line_[at_] == '"' ? quotedWord() : bareWord());
    return result;
  }

 private:
  bool skipBlanks() {
    while (at_ < line_.size() && isBlank(line_[at_])) ++at_;
    return at_ < line_.size();
  }

  std::u16string bareWord() {
    const std::size_t begin = at_;
    while (at_ < line_.size() && !isBlank(line_[at_])) ++at_;
    return hosts::fromUtf8(std::string_view(line_).substr(begin, at_ - begin));
  }

  std::u16string quotedWord() {
    std::u16string word;
    ++at_;
    while (true) {
      const std::size_t begin = at_;
      while (at_ < line_.size() && line_[at_] != '"' && line_[at_] != '\\') ++at_;
      word += hosts::fromUtf8(std::string_view(line_).substr(begin, at_ - begin));
      if (at_ >= line_.size()) throw ScriptError("a quoted word has no end");
      if (line_[at_++] == '"') break;
      word += escape();
    }
    if (at_ < line_.size() && !isBlank(line_[at_])) {
      throw ScriptError("a blank is missing behind a quoted word");
    }
    return word;
  }

  char16_t escape() {
    if (at_ >= line_.size()) throw ScriptError("a quoted word has no end");
    const char letter = line_[at_++];
    if (letter == 'u') return codeUnit();
    const auto* escape = std::ranges::find(kEscapes, letter, &Escape::letter);
    if (escape != kEscapes.end()) return escape->character;
    throw ScriptError(std::string("unknown escape \\") + letter);
  }

  char16_t codeUnit() {
    constexpr std::size_t kDigits = 4;
    unsigned value = 0;
    const char* begin = line_.data() + at_;
    const char* end = begin + std::min(kDigits, line_.size() - at_);
    const auto [stop, error] = std::from_chars(begin, end, value, 16);
    if (error != std::errc() || stop != begin + kDigits) {
      throw ScriptError("\\u wants four hexadecimal digits");
    }
    at_ += kDigits;
    return static_cast<char16_t>(value);
  }

  const std::string& line_;
  std::size_t at_ = 0;
};

}  // namespace

std::vector<std::u16string> splitWords(const std::string& line) {
  return Splitter(line).words();
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
