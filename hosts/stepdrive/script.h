#pragma once

#include <array>
#include <istream>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace stepdrive {

/// Something is wrong with the script itself; what() is the reason.
class ScriptError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// An escape in a quoted word: the letter behind the backslash, and what it stands for.
struct Escape {
  char16_t letter;
  char16_t character;
};
inline constexpr auto kEscapes = std::to_array<Escape>(
    {{u'"', u'"'}, {u'\\', u'\\'}, {u'r', u'\r'}, {u'n', u'\n'}, {u't', u'\t'}, {u'b', u'\b'}});

/// A line of a script that holds a command.
struct ScriptLine {
  int number = 0;    ///< from 1
  std::string text;  ///< as written
  std::vector<std::u16string> words;
};

/// Splits a line at its blanks; a word in double quotes may hold blanks and escapes.
/// @throws ScriptError for an open quote or an unknown escape
std::vector<std::u16string> splitWords(const std::string& line);

/// Reads a script line by line, as its commands are carried out.
class Script {
 public:
  explicit Script(std::istream& input) : input_(input) {}

  /// The next line that holds a command; nothing at the end.
  std::optional<ScriptLine> next();
  /// Number of the line read last.
  [[nodiscard]] int lineNumber() const { return number_; }

 private:
  std::istream& input_;
  int number_ = 0;
};

}  // namespace stepdrive
