#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kvrnstep::stepfiles {

/// Written for a double quote inside of a stored text, because double quotes enclose the text.
inline constexpr std::u16string_view kQuotePlaceholder = u"<WXEQUOTE>";

/// A text as records hold it: in double quotes.
std::u16string quoted(std::u16string_view text);

/// Reads the comma-separated fields of records. A text in double quotes runs to the next double
/// quote, commas and line breaks included; any other field runs to the next comma or line end,
/// without the blanks around it. A record ends with its line.
class FieldReader {
 public:
  /// Skips a byte order mark. The text must outlive the reader.
  explicit FieldReader(std::u16string_view text);

  /// The next field of the record; empty behind the last one.
  std::u16string text();
  /// The next field as a number, rounded with halves to even and limited to 16 bits; nothing if it
  /// is none.
  std::optional<std::int16_t> number();

  /// Whether the last field of the record has been read.
  [[nodiscard]] bool ended() const { return ended_; }
  /// Goes on to the next line that is not empty. False if there is none.
  bool nextRecord();

 private:
  void skip(std::u16string_view characters);

  std::u16string_view rest_;
  bool ended_ = false;
};

}  // namespace kvrnstep::stepfiles
