#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The system's calls for files, in `posix/` and `windows/`. How a file is saved, what is read and
/// which names the list of a folder leaves out are decided once, in the files of this folder.
namespace kvrnstep::platform::native {

/// A path as the system takes it. It is not always UTF-16, because a link on Linux may lead to a
/// name that UTF-16 cannot hold.
#ifdef _WIN32
using Path = std::u16string;
#else
using Path = std::string;
#endif

/// The path as the system takes it, long ones in the form that has no limit; empty, which names
/// nothing, for a path with a NUL in it.
Path pathOf(const std::u16string& path);
std::u16string textOf(const Path& path);

/// The path up to its last separator, or to the colon of a drive, included; empty for a name alone.
Path folderPart(const Path& path);

/// The path of the file that a chain of links leads to. Nothing for links that lead in a circle or
/// cannot be read: a save would replace the link itself.
std::optional<Path> withoutLinks(const Path& path);

/// What a path leads to, for a program that is about to write there.
enum class Target {
  kNothing,       ///< a new file can be made there if the folder allows it
  kWritableFile,  ///< a regular file that this process may write to
  kOther,         ///< anything else, and whatever the system does not tell about
};
/// A file without any write permission counts as not writable, even for root.
Target targetAt(const Path& path);

/// An open file.
class File {
 public:
  File(Path path, std::intptr_t handle) : path_(std::move(path)), handle_(handle) {}
  File(File&& other) noexcept
      : path_(std::move(other.path_)), handle_(std::exchange(other.handle_, kNone)) {}
  ~File() { close(); }
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  File& operator=(File&&) = delete;

  [[nodiscard]] bool open() const { return handle_ != kNone; }
  [[nodiscard]] const Path& path() const { return path_; }
  /// As the system knows it: a number, or a handle.
  [[nodiscard]] std::intptr_t handle() const { return handle_; }

  /// Nothing when this is no regular file: reading a pipe or a device could block or never end.
  [[nodiscard]] std::optional<std::uint64_t> size() const;
  /// Reads `most` bytes or fewer and returns their number; 0 at the end of the file, nothing when
  /// the system cannot read.
  [[nodiscard]] std::optional<std::size_t> read(char* bytes, std::size_t most) const;
  /// Writes the first of the bytes and returns how many; 0 when the system cannot write.
  [[nodiscard]] std::size_t write(std::string_view bytes) const;
  /// Drops what is behind the first `size` bytes.
  [[nodiscard]] bool cutTo(std::uint64_t size) const;
  /// Gives this file the owner, the permissions and the attributes of the one that it is about to
  /// replace, as far as the system allows it. At no moment does it give anybody a right that the
  /// other file does not.
  [[nodiscard]] bool takeAfter(const Path& other) const;
  /// Waits until the bytes are on the disk.
  [[nodiscard]] bool sync() const;
  /// False when the system reports, only now, that something could not be written.
  bool close();

 private:
  static constexpr std::intptr_t kNone = -1;  ///< what the systems return for a failure

  Path path_;
  std::intptr_t handle_;
};

File openToRead(const Path& path);
/// Opens a file for writing and creates it if need be; what it holds stays.
File openOrCreate(const Path& path);
enum class Creation { kDone, kNameTaken, kFolderRefuses, kFailed };
/// Creates a file, which must not be there yet.
/// @param forUsAlone nobody else may read it until `takeAfter`
/// @param result set to the outcome
File createNew(const Path& path, bool forUsAlone, Creation& result);

/// Gives a file another name, in place of whatever file has that name, in one step.
bool rename(const Path& from, const Path& to);
/// A folder is no file.
bool remove(const Path& path);

/// The names of the files in a folder that begin like this, links to files included, in no order.
/// None when it cannot be read, and no names in another encoding than that of the system, because
/// they could not be found again by their characters.
std::vector<Path> filesIn(const Path& folder, const Path& start = {});

/// The number of this process.
std::uint32_t processNumber();

/// Deletes a file that `createNew` made for this user in a process that is gone. Nothing happens
/// to any other file, nor while some process has this number or has the file open.
void removeLeftover(const Path& path, std::uint32_t process);

/// A folder that only this user can read, with its separator. It stays when the process ends. Empty
/// when there is none.
Path privateFolder();

/// Waits for the lock of this folder. The result has the lock until it is closed. It is not open if
/// folders have no locks, or if another caller keeps the lock for two seconds.
File lockFolder(const Path& folder);

}  // namespace kvrnstep::platform::native
