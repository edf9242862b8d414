// Stored beginnings and endings: fifteen texts, whatever the bytes.

#include "stepfiles/stored_texts.h"

#include "fuzz.h"
#include "stepfiles/quote_placeholder.h"

namespace {

using namespace kvrnstep;
using stepfiles::StoredTexts;

void roundTrip(const StoredTexts& texts) {
  StoredTexts expected = texts;
  // Who types the token that stands for a double quote gets a double quote back.
  for (std::u16string& text : expected) text = stepfiles::withQuotes(text);
  fuzz::check(stepfiles::parseStoredTexts(stepfiles::formatStoredTexts(texts)) == expected,
              "texts are read as they were written");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  roundTrip(stepfiles::parseStoredTexts(fuzz::bytesOf(data, size)));

  FuzzedDataProvider input(data, size);
  StoredTexts texts;
  for (std::u16string& text : texts) text = fuzz::anyText(input, 64);
  roundTrip(texts);
  return 0;
}
