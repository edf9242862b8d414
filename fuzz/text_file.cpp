// Text files: what is written comes back, and what anybody wrote is read.

#include "storage/text_file.h"

#include "fuzz.h"
#include "text/codepage.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kvrnstep;
  static const fuzz::ScratchFolder folder;
  static const std::u16string file = folder.file("text.dat");
  const std::string_view bytes = fuzz::bytesOf(data, size);

  fuzz::writeBytes(file, bytes);
  const bool ended = bytes.ends_with("\r\n");
  const std::u16string expected = text::fromBytes(bytes.substr(0, size - (ended ? 2 : 0)));
  fuzz::check(storage::ReadTextFile(file) == expected, "one line end is not part of the text");

  FuzzedDataProvider input(data, size);
  const std::u16string text = fuzz::anyText(input, 4096);
  fuzz::check(storage::WriteTextFile(file, text), "a text is written");
  fuzz::check(storage::ReadTextFile(file) == text, "a text comes back");
  fuzz::check(fuzz::readBytes(file) == text::toBytes(text) + "\r\n", "with one line end behind it");
  return 0;
}
