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

ListSettings parseStepRecord(std::string_view bytes) {
  const std::u16string text = text::fromBytes(bytes);
  FieldReader fields(text);
  ListSettings settings;
  settings.Selection = fields.number().value_or(0);
  for (const auto field : kTexts) settings.*field = fields.text();
  for (const auto field : kNumbers) settings.*field = fields.number().value_or(0);
  for (std::int16_t& option : settings.Option) option = fields.number().value_or(0);
  return settings;
}

bool isStepRecord(std::string_view bytes) {
  const std::u16string text = text::fromBytes(bytes);
  FieldReader fields(text);
  const auto type = fields.number();
  if (!type || *type < 0 || static_cast<std::size_t>(*type) >= kListingTypes.size()) return false;
  for (std::size_t i = 0; i < kTexts.size(); ++i) fields.text();
  return std::ranges::all_of(kNumbers, [&](auto) { return fields.number().has_value(); });
}

ListSettings withinRanges(ListSettings settings) {
  settings.LineSpacing = std::clamp<std::int16_t>(settings.LineSpacing, 0, 9);
  settings.Count = std::clamp<std::int16_t>(settings.Count, 1, 99);
  settings.Start = std::clamp<std::int16_t>(settings.Start, 1, settings.Count);
  return settings;
}

std::optional<ListSettings> readStepFile(const std::u16string& path) {
  const auto bytes = platform::readFile(path, kLargestStepFile);
  if (!bytes) return std::nullopt;
  return parseStepRecord(*bytes);
}

bool writeStepFile(const std::u16string& path, const ListSettings& settings) {
  return platform::replaceFile(path, formatStepRecord(settings));
}

}  // namespace kvrnstep::stepfiles
