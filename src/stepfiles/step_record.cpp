#include "stepfiles/step_record.h"

#include <algorithm>

#include "platform/files.h"
#include "stepfiles/field_reader.h"
#include "stepfiles/quote_placeholder.h"
#include "text/codepage.h"
#include "text/numbers.h"

namespace kvrnstep::stepfiles {

std::string formatStepRecord(const generator::ListSettings& settings) {
  std::u16string record = text::decimal(settings.Selection);
  for (const std::u16string* text :
       {&settings.Beginning, &settings.Ending, &settings.Prefix, &settings.Suffix}) {
    record += u",\"" + withoutQuotes(*text) + u'"';
  }
  for (const std::int16_t number : {settings.LineSpacing, settings.Start, settings.Count}) {
    record += u',' + text::decimal(number);
  }
  for (const std::int16_t option : settings.Option) record += u',' + text::decimal(option);
  return text::toBytes(record + u"\r\n");
}

generator::ListSettings parseStepRecord(std::string_view bytes) {
  const std::u16string text = text::fromBytes(bytes);
  FieldReader fields(text);
  generator::ListSettings settings;
  settings.Selection = fields.number().value_or(0);
  settings.Beginning = withQuotes(fields.text());
  settings.Ending = withQuotes(fields.text());
  settings.Prefix = withQuotes(fields.text());
  settings.Suffix = withQuotes(fields.text());
  settings.LineSpacing = fields.number().value_or(0);
  settings.Start = fields.number().value_or(0);
  settings.Count = fields.number().value_or(0);
  for (std::int16_t& option : settings.Option) option = fields.number().value_or(0);
  return settings;
}

bool isStepRecord(std::string_view bytes) {
  const std::u16string text = text::fromBytes(bytes);
  FieldReader fields(text);
  const auto selection = fields.number();
  if (!selection || *selection < generator::Numbered || *selection > generator::PrefixSuffix) {
    return false;
  }
  for (int texts = 0; texts < 4; ++texts) fields.text();
  return fields.number() && fields.number() && fields.number();
}

generator::ListSettings withinRanges(generator::ListSettings settings) {
  settings.LineSpacing = std::clamp<std::int16_t>(settings.LineSpacing, 0, 9);
  settings.Count = std::clamp<std::int16_t>(settings.Count, 1, 99);
  settings.Start = std::clamp<std::int16_t>(settings.Start, 1, settings.Count);
  return settings;
}

std::optional<generator::ListSettings> readStepFile(const std::u16string& path) {
  const auto bytes = platform::readFile(path, kLargestStepFile);
  if (!bytes) return std::nullopt;
  return parseStepRecord(*bytes);
}

bool writeStepFile(const std::u16string& path, const generator::ListSettings& settings) {
  return platform::replaceFile(path, formatStepRecord(settings));
}

}  // namespace kvrnstep::stepfiles
