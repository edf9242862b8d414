#include "stepfiles/stored_texts.h"

#include "platform/files.h"
#include "stepfiles/field_reader.h"
#include "storage/text_file.h"
#include "text/codepage.h"

namespace kvrnstep::stepfiles {

std::string formatStoredTexts(const StoredTexts& texts) {
  std::u16string records;
  for (const std::u16string& text : texts) records += quoted(text) + u"\r\n";
  return text::toBytes(records);
}

StoredTexts parseStoredTexts(std::string_view bytes) {
  const std::u16string records = text::fromBytes(bytes);
  FieldReader fields(records);
  StoredTexts texts;
  for (std::u16string& text : texts) {
    if (fields.ended() && !fields.nextRecord()) break;
    text = fields.text();
  }
  return texts;
}

std::optional<StoredTexts> readStoredTexts(const std::u16string& path) {
  if (!storage::FileExists(path)) platform::createEmptyFile(path);
  const auto bytes = platform::readFile(path);
  if (!bytes) return std::nullopt;
  return parseStoredTexts(*bytes);
}

bool writeStoredTexts(const std::u16string& path, const StoredTexts& texts) {
  return platform::replaceFile(path, formatStoredTexts(texts));
}

}  // namespace kvrnstep::stepfiles
