#include "stepfiles/field_reader.h"

#include <algorithm>
#include <limits>

#include "text/numbers.h"

namespace kvrnstep::stepfiles {

namespace {

constexpr std::u16string_view kBlanks = u" \t";
constexpr std::u16string_view kFieldEnds = u",\r\n";
constexpr char16_t kByteOrderMark = 0xFEFF;

std::u16string_view trimmedRight(std::u16string_view text) {
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

}  // namespace

FieldReader::FieldReader(std::u16string_view text) : rest_(text) {
  if (rest_.starts_with(kByteOrderMark)) rest_.remove_prefix(1);
  nextRecord();
}

bool FieldReader::nextRecord() {
  rest_.remove_prefix(std::min(rest_.find_first_not_of(u" \t\r\n"), rest_.size()));
  ended_ = rest_.empty();
  return !ended_;
}

std::u16string_view FieldReader::text() {
  if (ended_) return {};
  skipBlanks();
  const std::u16string_view field = rest_.starts_with(u'"') ? quoted() : plain();
  endField();
  return field;
}

std::optional<std::int16_t> FieldReader::number() {
  using Limits = std::numeric_limits<std::int16_t>;
  const auto number = text::wholeTextNumber(text());
  if (!number) return std::nullopt;
  return text::roundToInt16(std::clamp<double>(*number, Limits::min(), Limits::max()));
}

void FieldReader::skipBlanks() {
  rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
}

std::u16string_view FieldReader::quoted() {
  rest_.remove_prefix(1);
  const std::u16string_view field = rest_.substr(0, rest_.find(u'"'));
  rest_.remove_prefix(std::min(field.size() + 1, rest_.size()));
  return field;
}

std::u16string_view FieldReader::plain() {
  const std::u16string_view field = rest_.substr(0, rest_.find_first_of(kFieldEnds));
  return trimmedRight(field);
}

/// Goes on behind the comma; what stands between a closing quote and the comma is lost.
void FieldReader::endField() {
  const std::size_t end = rest_.find_first_of(kFieldEnds);
  ended_ = end == std::u16string_view::npos || rest_[end] != u',';
  rest_.remove_prefix(std::min(end, rest_.size()));
  if (!ended_) rest_.remove_prefix(1);
}

}  // namespace kvrnstep::stepfiles
