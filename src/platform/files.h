#pragma once

#include <cstddef>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Whole files and folders. Paths are UTF-16 and may be relative to the working folder; where the
/// system takes bytes, it gets them as UTF-8. A path with a NUL in it names nothing.
namespace kvrnstep::platform {

/// Larger files are neither read nor written, unless a caller has a limit of its own.
inline constexpr std::size_t kLargestFile = std::size_t{1} << 24U;
inline constexpr std::size_t kAnySize = std::numeric_limits<std::size_t>::max();

/// The content of a regular file. Nothing for a folder, a device, a file that cannot be read, or
/// one of more than `largest` bytes.
std::optional<std::string> readFile(const std::u16string& path, std::size_t largest = kLargestFile);

/// Whether a file has exactly this content, found out without a copy of it.
bool fileHolds(const std::u16string& path, std::string_view bytes);

/// Makes the file hold exactly these bytes, creating it if need be. Whatever happens, the whole old
/// content or the whole new one is there, because a temporary file in the same folder takes the
/// place of the target. Links are followed; the target keeps its permissions and, where the system
/// allows it, its owner, group, access control list and extended attributes; nobody gains a right
/// to read it. A file that holds the bytes already is not touched. If no file can be made in the
/// folder, the target is written in place, and its former bytes are kept elsewhere until that is
/// done. Temporary files of processes that are gone are removed from the folder. False, and nothing
/// has changed, when there are more than `largest` bytes, when the target is no regular file or may
/// not be written, or when its folder is missing, or no new file can be made there. A file without
/// any write permission counts as not writable, even for root.
bool replaceFile(const std::u16string& path, std::string_view bytes,
                 std::size_t largest = kLargestFile);

/// As `replaceFile`, but false if something of that name is there.
bool saveNewFile(const std::u16string& path, std::string_view bytes);

/// Makes the new content of a file from the present one, which is nothing for a missing file.
using Change = std::function<std::string(std::optional<std::string_view> bytes)>;

/// Replaces the content of a file by what `change` makes of it. Where the system locks folders, no
/// other caller changes a file of the folder meanwhile. If other programs change the file
/// nevertheless, `change` is called again, with their content. False, and nothing has changed, when
/// the file is there and cannot be read, or cannot be replaced.
bool changeFile(const std::u16string& path, const Change& change);

/// Creates an empty file; one that is there already keeps its content. False when it can neither be
/// created nor opened for writing.
bool createEmptyFile(const std::u16string& path);

/// Whether the path names a file, folder or anything else; false for a link that leads nowhere, and
/// whenever the system does not tell.
bool pathExists(const std::u16string& path);

/// Creates one folder in a folder that exists. False when that fails or the path is in use.
bool createFolder(const std::u16string& path);

/// The names of the files in the folder, hidden ones too, in no order; links to files count. None
/// when the folder cannot be read.
std::vector<std::u16string> filesIn(const std::u16string& folder);

/// False when the file cannot be deleted. A folder is no file.
bool deleteFile(const std::u16string& path);

}  // namespace kvrnstep::platform
