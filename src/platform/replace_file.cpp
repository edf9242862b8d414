#include <atomic>

#include "platform/files.h"
#include "platform/native_files.h"
#include "text/numbers.h"

namespace kvrnstep::platform {

namespace {

using native::Creation;
using native::File;
using native::Path;
using native::Target;

/// Whether a save may go on, asked when everything is ready for it.
using MayGoOn = std::function<bool()>;

/// What the names of temporary files begin with. The number of the process and a running number
/// follow.
const Path& temporaryStart() {
  static const Path start = native::pathOf(u".kvrnstep-");
  return start;
}

/// Creates a temporary file in a folder. Its name does not contain the target's, which may be as
/// long as the system allows. A name that is in use already is skipped.
File createTemporary(const Path& folder, const Path& nameStart, bool forUsAlone, Creation& result) {
  constexpr int kMostAttempts = 1000;
  static std::atomic<unsigned> counter{0};
  const Path start =
      folder + nameStart + native::pathOf(text::decimal(native::processNumber()) + u'-');
  for (int attempt = 1;; ++attempt) {
    Path path = start;
    path += native::pathOf(text::decimal(counter++));
    File file = native::createNew(path, forUsAlone, result);
    if (result != Creation::kNameTaken || attempt == kMostAttempts) return file;
  }
}

/// The number of the process that gave a temporary file this name; nothing for names of others.
std::optional<std::uint32_t> processInName(const Path& name) {
  const std::u16string numbers = native::textOf(name.substr(temporaryStart().size()));
  const auto sign = numbers.find(u'-');
  if (sign == std::u16string::npos) return std::nullopt;
  const auto number = [](const std::u16string& digits) -> std::optional<std::uint32_t> {
    const bool only = digits.find_first_not_of(u"0123456789") == std::u16string::npos;
    const auto value = only ? text::wholeTextNumber(digits) : std::nullopt;
    const auto whole = value ? text::roundToInt32(*value) : std::nullopt;
    if (!whole) return std::nullopt;
    return static_cast<std::uint32_t>(*whole);
  };
  return number(numbers.substr(sign + 1)) ? number(numbers.substr(0, sign)) : std::nullopt;
}

/// Deletes what processes left that were killed while they saved.
void removeLeftovers(const Path& folder) {
  for (const Path& name : native::filesIn(folder, temporaryStart())) {
    if (const auto process = processInName(name)) native::removeLeftover(folder + name, *process);
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

bool overwrite(const Path& target, std::string_view bytes) {
  File file = native::openOrCreate(target);
  return writeAll(file, bytes) && file.cutTo(bytes.size()) && file.sync() && file.close();
}

/// Writes into the target itself. Meanwhile another file holds the former bytes. It stays if the
/// process ends in between, or if the bytes cannot be put back.
bool saveInPlace(const Path& target, const std::string& former, std::string_view bytes,
                 const MayGoOn& mayGoOn) {
  const Path folder = native::privateFolder();
  if (folder.empty()) return false;
  Creation result{};
  File kept = createTemporary(folder, native::pathOf(u"kept-"), true, result);
  if (!kept.open()) return false;
  const bool safe = writeAll(kept, former) && kept.sync() && kept.close() && mayGoOn();
  const bool saved = safe && overwrite(target, bytes);
  const bool whole = saved || !safe || overwrite(target, former);
  kept.close();
  if (whole) native::remove(kept.path());
  return saved;
}

/// Puts a new file in the place of the target, if there is one. The bytes must be on the disk
/// before the file is renamed, because a power failure could leave an empty target otherwise.
/// @param differs whether a file that is there is known to hold other bytes
bool save(const std::u16string& path, std::string_view bytes, std::size_t largest,
          const MayGoOn& mayGoOn, bool differs = false) {
  if (bytes.size() > largest) return false;
  const Path named = native::pathOf(path);
  const auto target = named.empty() ? std::nullopt : native::withoutLinks(named);
  const Target found = target ? native::targetAt(*target) : Target::kOther;
  if (found == Target::kOther) return false;
  const bool isThere = found == Target::kWritableFile;
  if (isThere && !differs && fileHolds(path, bytes)) return true;

  const Path folder = native::folderPart(*target);
  removeLeftovers(folder);
  // The target's permissions come later, so until then nobody else may read the new file.
  Creation result{};
  File file = createTemporary(folder, temporaryStart(), isThere, result);
  if (result == Creation::kFolderRefuses && isThere) {
    const auto former = readFile(path, largest);
    return former && saveInPlace(*target, *former, bytes, mayGoOn);
  }
  if (!file.open()) return false;
  if (writeAll(file, bytes) && (!isThere || file.takeAfter(*target)) && file.sync() &&
      file.close() && mayGoOn() && native::rename(file.path(), *target)) {
    return true;
  }
  file.close();
  native::remove(file.path());
  return false;
}

bool nothingIsAt(const std::u16string& path) {
  const auto target = native::withoutLinks(native::pathOf(path));
  return target && native::targetAt(*target) == Target::kNothing;
}

}  // namespace

bool replaceFile(const std::u16string& path, std::string_view bytes, std::size_t largest) {
  return save(path, bytes, largest, [] { return true; });
}

bool saveNewFile(const std::u16string& path, std::string_view bytes) {
  return save(path, bytes, kLargestFile, [&path] { return nothingIsAt(path); });
}

bool changeFile(const std::u16string& path, const Change& change) {
  constexpr int kMostAttempts = 20;
  const auto target = native::withoutLinks(native::pathOf(path));
  if (!target) return false;
  const File lock = native::lockFolder(native::folderPart(*target));
  for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
    const auto before = readFile(path);
    // A file that exists but cannot be read must not be replaced, because its content would be
    // lost.
    if (!before && !nothingIsAt(path)) return false;
    const std::string changed = change(before);
    if (changed == before) return true;
    bool asBefore = true;
    const auto mayGoOn = [&] {
      return asBefore = before ? fileHolds(path, *before) : nothingIsAt(path);
    };
    if (save(path, changed, kLargestFile, mayGoOn, true)) return true;
    if (asBefore) return false;
  }
  return false;
}

}  // namespace kvrnstep::platform
