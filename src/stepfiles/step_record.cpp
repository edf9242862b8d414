#include "stepfiles/step_record.h"

#include <algorithm>
#include <array>

#include "platform/files.h"
#include "stepfiles/field_reader.h"
#include "text/codepage.h"
#include "text/numbers.h"

namespace kvrnstep::stepfiles {

namespace {

using generator::ListSettings;

/// The columns behind the listing type: texts, numbers, then the options.
constexpr std::array kTexts{&ListSettings::Beginning, &ListSettings::Ending, &ListSettings::Prefix,
                            &ListSettings::Suffix};
constexpr std::array kNumbers{&ListSettings::LineSpacing, &ListSettings::Start,
                              &ListSettings::Count};

}  // namespace

std::string formatStepRecord(const ListSettings& settings) {
  std::u16string record = text::decimal(settings.Selection);
  for (const auto field : kTexts) record += u',' + quoted(settings.*field);
  for (const auto field : kNumbers) record += u',' + text::decimal(settings.*field);
  for (const std::int16_t option : settings.Option) record += u',' + text::decimal(option);
  return text::toBytes(record + u"\r\n");
}

std::optional<ListSettings> parseStepRecord(std::string_view bytes) {
  const std::u16string text = text::fromBytes(bytes);
  FieldReader fields(text);
  ListSettings settings;
  const auto take = [&fields](std::int16_t& field) {
    const auto number = fields.number();
    field = number.value_or(0);
    return number.has_value();
  };
  if (!take(settings.Selection)) return std::nullopt;
  for (const auto field : kTexts) settings.*field = fields.text();
  for (const auto field : kNumbers) {
    if (!take(settings.*field)) return std::nullopt;
  }
  for (std::int16_t& option : settings.Option) take(option);
  return settings;
}

ListSettings withinRanges(ListSettings settings) {
  settings.LineSpacing = std::clamp<std::int16_t>(settings.LineSpacing, 0, 9);
  settings.Count = std::clamp<std::int16_t>(settings.Count, 1, 99);
  settings.Start = std::clamp<std::int16_t>(settings.Start, 1, settings.Count);
  return settings;
}

std::optional<std::string> readStepFile(const std::u16string& path) {
  return platform::readFile(path, kLargestStepFile);
}

bool writeStepFile(const std::u16string& path, const ListSettings& settings, bool isNew) {
  const std::string bytes = formatStepRecord(settings);
  if (isNew) return bytes.size() <= kLargestStepFile && platform::saveNewFile(path, bytes);
  return platform::replaceFile(path, bytes, kLargestStepFile);
}

}  // namespace kvrnstep::stepfiles
