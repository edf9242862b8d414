#include <atomic>

#include "platform/files.h"
#include "platform/native_files.h"
#include "text/numbers.h"

namespace kvrnstep::platform {

namespace {

using native::File;
using native::Path;
using native::Target;

/// Creates a temporary file in the folder of the target. Its name does not contain the target's,
/// which may be as long as the system allows. A name that is in use already is skipped.
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

/// Puts a new file in the place of the target, if there is one. The bytes must be on the disk
/// before the file is renamed, because a power failure could leave an empty target otherwise.
bool save(const Path& target, bool isThere, std::string_view bytes) {
  // The target's permissions come later, so until then nobody else may read the new file.
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
