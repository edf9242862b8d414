#pragma once

#include <optional>
#include <string_view>

/// The lines of a settings file and what each of them says.
namespace kvrnstep::platform {

struct ProfileLine {
  std::string_view text;     ///< without the line end
  std::string_view end;      ///< CR LF, LF or CR; empty where the file ends without one
  std::string_view usedEnd;  ///< `end`, or else that of the line before; CR LF for a lone line
};

/// Gives the lines of a file one after the other. The byte order mark at the start of a file is
/// part of no line, and nothing follows the last line end.
class ProfileLines {
 public:
  explicit ProfileLines(std::string_view bytes);
  std::optional<ProfileLine> next();
  /// Passes over lines that can be no section's, at most to the last line of the file.
  void skipToBracket();

 private:
  [[nodiscard]] std::size_t lineEnd();

  std::string_view bytes_;
  std::string_view usedEnd_ = "\r\n";
  std::size_t at_ = 0;
  // The next of each kind, so that a file with one kind alone is not searched again and again for
  // the other.
  std::size_t nextCr_;
  std::size_t nextLf_;
};

/// The name in a section line.
std::optional<std::string_view> sectionName(const ProfileLine& line);

/// A key line taken apart.
struct ProfileKey {
  std::string_view name;
  std::string_view afterSign;  ///< all that follows the "="
};

/// Nothing for a comment and for a line without "=". A section line is not told apart here.
std::optional<ProfileKey> keyOf(const ProfileLine& line);

/// Without the blanks and tabs at both ends.
std::string_view trimBlanksAndTabs(std::string_view text);

}  // namespace kvrnstep::platform
