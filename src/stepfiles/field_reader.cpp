#include "stepfiles/field_reader.h"

#include <algorithm>
#include <limits>

#include "text/numbers.h"
#include "text/text.h"

namespace kvrnstep::stepfiles {

namespace {

constexpr std::u16string_view kBlanks = u" \t";
constexpr std::u16string_view kFieldEnds = u",\r\n";
constexpr char16_t kByteOrderMark = 0xFEFF;

}  // namespace

std::u16string quoted(std::u16string_view text) {
  return u'"' + text::ReplaceText(text, u"\"", kQuotePlaceholder) + u'"';
}

FieldReader::FieldReader(std::u16string_view text) : rest_(text) {
  if (rest_.starts_with(kByteOrderMark)) rest_.remove_prefix(1);
  nextRecord();
}

bool FieldReader::nextRecord() {
  skip(u" \t\r\n");
  ended_ = rest_.empty();
  return !ended_;
}

std::u16string FieldReader::text() {
  if (ended_) return {};
  skip(kBlanks);
  const bool inQuotes = rest_.starts_with(u'"');
  if (inQuotes) rest_.remove_prefix(1);
  auto field = rest_.substr(0, inQuotes ? rest_.find(u'"') : rest_.find_first_of(kFieldEnds));
  rest_.remove_prefix(field.size());
  if (!inQuotes) field = field.substr(0, field.find_last_not_of(kBlanks) + 1);

  // Characters between a closing quote and the comma are ignored.
  const std::size_t end = rest_.find_first_of(kFieldEnds);
  ended_ = end == std::u16string_view::npos || rest_[end] != u',';
  rest_.remove_prefix(std::min(end, rest_.size()));
  if (!ended_) rest_.remove_prefix(1);
  return text::ReplaceText(field, kQuotePlaceholder, u"\"");
}

std::optional<std::int16_t> FieldReader::number() {
  using Limits = std::numeric_limits<std::int16_t>;
  const auto number = text::wholeTextNumber(text());
  if (!number) return std::nullopt;
  return text::roundToInt16(std::clamp<double>(*number, Limits::min(), Limits::max()));
}

void FieldReader::skip(std::u16string_view characters) {
  rest_.remove_prefix(std::min(rest_.find_first_not_of(characters), rest_.size()));
}

}  // namespace kvrnstep::stepfiles
