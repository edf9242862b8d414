// List files, against a reader that decodes first and splits afterwards.

#include "storage/list_file.h"

#include "fuzz.h"
#include "text/codepage.h"

namespace {

using namespace kvrnstep;

std::vector<std::u16string> obviousEntries(std::string_view bytes) {
  std::vector<std::u16string> entries(1);
  std::size_t lines = 0;
  const std::u16string text = text::fromBytes(bytes);
  for (std::size_t at = 0; at < text.size() && lines < storage::kMostListLines; ++at) {
    if (text[at] != u'\r') {
      entries.back() += text[at];
      continue;
    }
    if (text.substr(at, 2) == u"\r\n") ++at;
    ++lines;
    if (!entries.back().empty()) entries.emplace_back();
  }
  if (entries.back().empty()) entries.pop_back();
  return entries;
}

/// Stands in for a list box.
class ListBox {
 public:
  void Clear() { entries_.clear(); }
  void AddItem(std::u16string text) { entries_.push_back(std::move(text)); }
  [[nodiscard]] int ListCount() const { return static_cast<int>(entries_.size()); }
  [[nodiscard]] const std::u16string& List(int index) const {
    return entries_.at(static_cast<std::size_t>(index));
  }
  [[nodiscard]] const std::vector<std::u16string>& entries() const { return entries_; }

 private:
  std::vector<std::u16string> entries_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const fuzz::ScratchFolder folder;
  static const std::u16string file = folder.file("list.dat");
  const std::string_view bytes = fuzz::bytesOf(data, size);
  fuzz::writeBytes(file, bytes);

  ListBox list;
  fuzz::check(storage::LoadSaveListFile(list, false, file), "a short list is read whole");
  fuzz::check(list.entries() == obviousEntries(bytes), "lines are entries");
  fuzz::check(list.entries() == storage::parseList(bytes).entries, "files are read as bytes are");

  fuzz::check(storage::LoadSaveListFile(list, true, file), "a list is saved");
  fuzz::check(storage::parseList(fuzz::readBytes(file)).entries == list.entries(),
              "a list is read as it was saved");
  return 0;
}
