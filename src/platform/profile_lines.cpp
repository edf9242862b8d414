#include "platform/profile_lines.h"

#include <algorithm>

namespace kvrnstep::platform {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanksAndTabs = " \t";

/// The line end that a text ends with; empty if there is none.
std::string_view endOf(std::string_view text) {
  if (!text.ends_with('\r') && !text.ends_with('\n')) return {};
  return text.substr(text.size() - (text.ends_with("\r\n") ? 2 : 1));
}

}  // namespace

std::string_view trimBlanksAndTabs(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanksAndTabs);
  if (first == std::string_view::npos) return text.substr(text.size());
  return text.substr(first, text.find_last_not_of(kBlanksAndTabs) - first + 1);
}

ProfileLines::ProfileLines(std::string_view bytes) : bytes_(bytes) {
  if (bytes_.starts_with(kByteOrderMark)) at_ = kByteOrderMark.size();
  nextCr_ = bytes_.find('\r', at_);
  nextLf_ = bytes_.find('\n', at_);
}

std::size_t ProfileLines::lineEnd() {
  if (nextCr_ < at_) nextCr_ = bytes_.find('\r', at_);
  if (nextLf_ < at_) nextLf_ = bytes_.find('\n', at_);
  return std::min({nextCr_, nextLf_, bytes_.size()});
}

std::optional<ProfileLine> ProfileLines::next() {
  if (at_ == bytes_.size()) return std::nullopt;
  const auto textEnd = lineEnd();
  const std::size_t endLength = bytes_.substr(textEnd, 2) == "\r\n" ? 2 : 1;
  const auto end = bytes_.substr(textEnd, endLength);
  if (!end.empty()) usedEnd_ = end;
  const ProfileLine line{bytes_.substr(at_, textEnd - at_), end, usedEnd_};
  at_ = textEnd + end.size();
  return line;
}

void ProfileLines::skipToBracket() {
  std::string_view before = bytes_.substr(at_, bytes_.find('[', at_) - at_);
  if (at_ + before.size() == bytes_.size()) before.remove_suffix(endOf(before).size());
  while (!before.empty() && endOf(before).empty()) before.remove_suffix(1);
  if (before.empty()) return;
  usedEnd_ = endOf(before);
  at_ += before.size();
}

std::optional<std::string_view> sectionName(const ProfileLine& line) {
  const auto open = line.text.find_first_not_of(kBlanksAndTabs);
  if (open == std::string_view::npos || line.text[open] != '[') return std::nullopt;
  const auto close = line.text.rfind(']');
  if (close == std::string_view::npos) return std::nullopt;
  return line.text.substr(open + 1, close - open - 1);
}

std::optional<ProfileKey> keyOf(const ProfileLine& line) {
  const auto sign = line.text.find('=');
  if (sign == std::string_view::npos) return std::nullopt;
  const auto name = trimBlanksAndTabs(line.text.substr(0, sign));
  if (name.starts_with(';')) return std::nullopt;
  return ProfileKey{name, line.text.substr(sign + 1)};
}

}  // namespace kvrnstep::platform
