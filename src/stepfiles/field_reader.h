#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kvrnstep::stepfiles {

/// Reads the comma-separated fields of one record. A text in double quotes runs to the next double
/// quote, commas and line breaks included; any other field runs to the next comma or line end,
/// without the blanks around it. The record ends with its line.
class FieldReader {
 public:
  /// Empty lines before the record, and a byte order mark, are passed over. The text must outlive
  /// the reader.
  explicit FieldReader(std::u16string_view text);

  /// The next field; empty behind the last one.
  std::u16string_view text();
  /// The next field as a whole number, halves rounded to even, the nearest that fits 16 bits;
  /// nothing when it is none.
  std::optional<std::int16_t> number();

 private:
  void skipBlanks();
  std::u16string_view quoted();
  std::u16string_view plain();
  void endField();

  std::u16string_view rest_;
  bool ended_ = false;
};

}  // namespace kvrnstep::stepfiles
