#pragma once

#include <optional>
#include <string>
#include <vector>

/// Settings files once more, read and written line by line without regard to speed: the judge of
/// the real functions.
namespace kvrnstep::fuzz {

class ObviousProfile {
 public:
  explicit ObviousProfile(std::string bytes);

  /// The value of a key: without the blanks and tabs around it and one pair of quotes.
  [[nodiscard]] std::optional<std::string> value(const std::string& section,
                                                 const std::string& key) const;
  /// Sets a key; names that could not be found again change nothing.
  void set(const std::string& section, const std::string& key, const std::string& value);
  [[nodiscard]] std::string bytes() const;

  /// What can be read again of a value that is written.
  static std::string readable(const std::string& value);

 private:
  struct Line {
    std::string text;
    std::string end;
  };
  struct Place {
    std::optional<std::size_t> section;
    std::optional<std::size_t> key;
    std::size_t behindLast = 0;  ///< where a new key of the section goes
  };

  [[nodiscard]] Place find(const std::string& section, const std::string& key) const;
  [[nodiscard]] std::string endBefore(std::size_t line) const;
  void insert(std::size_t line, const std::vector<std::string>& texts);

  std::string mark_;
  std::vector<Line> lines_;
};

}  // namespace kvrnstep::fuzz
