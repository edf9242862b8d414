#include <atomic>

#include "platform/files.h"
#include "platform/native_files.h"
#include "text/numbers.h"

namespace kvrnstep::platform {

namespace {

using native::File;
using native::Path;
using native::Target;

/// Creates a file under a passing name in the folder of the target. The name is short whatever the
/// target's, which may be as long as the system allows. It is not guessed at random: a name in
/// use, by whomever, is passed over.
File createBeside(const Path& target, bool forUsAlone) {
  constexpr int kMostAttempts = 1000;
  static std::atomic<unsigned> counter{0};
  const Path start = native::folderPart(target) +
                     native::pathOf(u".kvrnstep-" + text::decimal(native::processNumber()) + u'-');
  for (int attempt = 1;; ++attempt) {
    bool taken = false;
    Path path = start;
    path += native::pathOf(text::decimal(counter++));
    File file = native::createNew(path, forUsAlone, taken);
    if (!taken || attempt == kMostAttempts) return file;
  }
}

bool writeAll(const File& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t count = file.write(bytes);
    if (count == 0) return false;
    bytes.remove_prefix(count);
  }
  return true;
}

/// Puts a new file in the place of the target, or of nothing. The bytes must be on the disk before
/// the name is, or a power failure could leave a target that is empty.
bool save(const Path& target, bool isThere, std::string_view bytes) {
  // Nobody may read what will not be theirs to read, not even while it is being written.
  File file = createBeside(target, isThere);
  if (!file.open()) return false;
  if (writeAll(file, bytes) && (!isThere || file.takeAfter(target)) && file.sync() &&
      file.close() && native::rename(file.path(), target)) {
    return true;
  }
  file.close();
  native::remove(file.path());
  return false;
}

}  // namespace

bool replaceFile(const std::u16string& path, std::string_view bytes) {
  const Path named = native::pathOf(path);
  const auto target = named.empty() ? std::nullopt : native::withoutLinks(named);
  const Target found = target ? native::targetAt(*target) : Target::kOther;
  if (found == Target::kOther) return false;
  const bool isThere = found == Target::kWritableFile;
  if (isThere && readFile(path, bytes.size()) == bytes) return true;
  return save(*target, isThere, bytes);
}

}  // namespace kvrnstep::platform
