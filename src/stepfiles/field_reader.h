#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kvrnstep::stepfiles {

/// Stands for a double quote inside of a stored text, which double quotes enclose.
inline constexpr std::u16string_view kQuotePlaceholder = u"<WXEQUOTE>";

/// A text as records hold it.
std::u16string quoted(std::u16string_view text);

/// Reads the comma-separated fields of records. A text in double quotes runs to the next double
/// quote, commas and line breaks included; any other field runs to the next comma or line end,
/// without the blanks around it. A record ends with its line.
class FieldReader {
 public:
  /// Stands before the first record; a byte order mark is passed over. The text must outlive the
  /// reader.
  explicit FieldReader(std::u16string_view text);

  /// The next field of the record; empty behind the last one.
  std::u16string text();
  /// The next field as a whole number, halves rounded to even, the nearest that fits 16 bits;
  /// nothing when it is none.
  std::optional<std::int16_t> number();

  /// Whether the last field of the record has been read.
  [[nodiscard]] bool ended() const { return ended_; }
  /// Goes on to the next record; empty lines are none. False: there is none.
  bool nextRecord();

 private:
  void skip(std::u16string_view characters);

  std::u16string_view rest_;
  bool ended_ = false;
};

}  // namespace kvrnstep::stepfiles
