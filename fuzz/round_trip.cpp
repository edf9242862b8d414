// Readers and writers of all that is kept in files: whatever the bytes and the texts, what was
// read, or is written, comes back.

#include <fuzzer/FuzzedDataProvider.h>

#include <array>

#include "fuzz.h"
#include "generator/list_settings.h"
#include "platform/profile.h"
#include "stepfiles/field_reader.h"
#include "stepfiles/step_file_name.h"
#include "stepfiles/step_record.h"
#include "stepfiles/stored_texts.h"
#include "storage/list_file.h"
#include "text/characters.h"
#include "text/codepage.h"
#include "text/text.h"

namespace {

using namespace kvrnstep;
using fuzz::check;

/// Up to that many UTF-16 units of any kind, halves of surrogate pairs included. ASCII is as
/// likely as all the rest.
std::u16string anyText(FuzzedDataProvider& input, std::size_t most) {
  if (input.ConsumeBool()) {
    const std::string ascii = input.ConsumeRandomLengthString(most);
    std::u16string text;
    for (const char c : ascii) text += static_cast<char16_t>(static_cast<unsigned char>(c) & 0x7FU);
    return text;
  }
  std::u16string text(input.ConsumeIntegralInRange<std::size_t>(0, most), u' ');
  for (char16_t& unit : text) unit = input.ConsumeIntegral<char16_t>();
  return text;
}

/// A setup with texts of up to that many units. Half of the setups hold the numbers that the
/// dialog allows, the others any.
generator::ListSettings anySettings(FuzzedDataProvider& input, std::size_t longestText) {
  const bool inRange = input.ConsumeBool();
  const auto number = [&](std::int16_t least, std::int16_t most) {
    return inRange ? input.ConsumeIntegralInRange<std::int16_t>(least, most)
                   : input.ConsumeIntegral<std::int16_t>();
  };
  generator::ListSettings settings;
  settings.Selection = number(0, 3);
  for (std::int16_t& option : settings.Option) option = number(0, 1);
  settings.LineSpacing = number(0, 9);
  settings.Start = number(1, 99);
  settings.Count = number(1, 99);
  for (std::u16string* text :
       {&settings.Prefix, &settings.Suffix, &settings.Beginning, &settings.Ending}) {
    *text = anyText(input, longestText);
  }
  return settings;
}

void encode(const std::u16string& text) {
  const std::string bytes = text::toBytes(text);
  check(text::isUtf8(bytes), "what is written is UTF-8");
  check(text::fromBytes(bytes) == text && text::fromUtf8(bytes) == text, "a text comes back");
}

void decode(std::string_view bytes) {
  const std::u16string text = text::fromBytes(bytes);
  const bool utf8 = text::isUtf8(bytes);
  check(text == (utf8 ? text::fromUtf8(bytes) : text::textFromWindows1252(bytes)),
        "the bytes are one encoding or the other");
  encode(text);
  encode(text::fromUtf8(bytes));
}

void list(std::string_view bytes) {
  const auto entries = storage::parseList(bytes).entries;
  std::u16string lines;
  for (const auto& entry : entries) lines += entry + u"\r\n";
  check(storage::parseList(text::toBytes(lines)).entries == entries, "a list comes back");
}

/// Who types the token that stands for a double quote gets a double quote back.
template <class... Texts>
void quoteAsRead(Texts&... texts) {
  ((texts = text::ReplaceText(texts, stepfiles::kQuotePlaceholder, u"\"")), ...);
}

void stepFile(FuzzedDataProvider input, std::string_view bytes) {
  const auto found = stepfiles::parseStepRecord(bytes);
  const auto read = found.value_or(generator::ListSettings());
  check(stepfiles::parseStepRecord(stepfiles::formatStepRecord(read)) == read,
        "a setup is read as it was written");

  auto any = anySettings(input, 64);
  const std::string record = stepfiles::formatStepRecord(any);
  quoteAsRead(any.Beginning, any.Ending, any.Prefix, any.Suffix);
  check(stepfiles::parseStepRecord(record) == any, "any setup comes back");
}

void storedTexts(FuzzedDataProvider input, std::string_view bytes) {
  stepfiles::StoredTexts any;
  for (std::u16string& text : any) text = anyText(input, 64);
  for (stepfiles::StoredTexts texts : {any, stepfiles::parseStoredTexts(bytes)}) {
    const std::string written = stepfiles::formatStoredTexts(texts);
    for (std::u16string& text : texts) quoteAsRead(text);
    check(stepfiles::parseStoredTexts(written) == texts, "texts are read as they were written");
  }
}

void stepFileName(FuzzedDataProvider input) {
  auto settings = anySettings(input, 200);
  const std::u16string name = stepfiles::BuildStepFileName(settings);
  check(name.find_first_of(u"\"?`!.'<>;:\\/\r\n\t ") == std::u16string::npos,
        "a name holds nothing that a file name may not hold");
  check(text::toUtf8(name).size() + stepfiles::kStepExtension.size() <= 255, "a name fits");
  settings.Beginning = settings.Ending = settings.Prefix = settings.Suffix = {};
  const std::u16string plain = stepfiles::BuildStepFileName(settings);
  check(name.ends_with(plain.substr(plain.find(u'_'))), "numbers and options stay in a name");
}

/// Short names of few kinds, so that they are found in the file again and again.
std::string profileName(FuzzedDataProvider& input) {
  static constexpr std::array kNames{"Sec", "sEC", "Key", "KEY", "", " Key\t", "A]", "[Key", ";"};
  return input.ConsumeBool() ? input.PickValueInArray(kNames) : input.ConsumeRandomLengthString(8);
}

void profile(FuzzedDataProvider input) {
  const std::string section = profileName(input);
  const std::string key = profileName(input);
  const std::string otherKey = profileName(input);
  const std::string value = input.ConsumeRandomLengthString(32);
  const std::string bytes = input.ConsumeRemainingBytesAsString();
  const auto with = [&](const std::string& before, const std::string& given) {
    return platform::withProfileValues(before, section,
                                       std::vector<platform::ProfileKey>{{key, given}});
  };
  const std::string written = with(bytes, value);
  if (!platform::isProfileName(section, key)) return check(written == bytes, "no name, no change");
  check(with(written, "") == with(bytes, ""),
        "whatever the value, the rest of the file is the same");
  if (value.find_first_of(" \t\r\n\"'") != std::string::npos) return;
  check(platform::profileValue(written, section, key) == value, "a value comes back");
  check(with(written, value) == written, "and is there once");
  const auto other = platform::profileValue(written, section, otherKey);
  check(other == value || other == platform::profileValue(bytes, section, otherKey),
        "other keys stay");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  decode(bytes);
  FuzzedDataProvider texts(data, size);
  encode(anyText(texts, size));
  list(bytes);
  stepFile(FuzzedDataProvider(data, size), bytes);
  storedTexts(FuzzedDataProvider(data, size), bytes);
  stepFileName(FuzzedDataProvider(data, size));
  profile(FuzzedDataProvider(data, size));
  return 0;
}
