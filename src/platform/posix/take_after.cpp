#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string>
#include <string_view>

#include "platform/native_files.h"

namespace kvrnstep::platform::native {

namespace {

/// The attribute as which the system keeps an access control list: a head of 4 bytes, then entries
/// of 8 bytes: the tag, the rights and the number of a user or group, lowest byte first.
constexpr const char* kAccessList = "system.posix_acl_access";
constexpr std::size_t kHead = 4;
constexpr std::size_t kEntry = 8;
constexpr std::size_t kRights = 2;
constexpr char kOwningGroup = 0x04;
constexpr char kEverybody = 0x20;

/// The bytes that a call fills in; without memory for them the call returns their number. Nothing
/// when it fails.
template <class Call>
std::optional<std::string> filledBy(Call call) {
  std::string bytes;
  ssize_t size = call(nullptr, 0);
  if (size > 0) {
    bytes.resize(static_cast<std::size_t>(size));
    size = call(bytes.data(), bytes.size());
  }
  if (size < 0) return std::nullopt;
  bytes.resize(static_cast<std::size_t>(size));
  return bytes;
}

std::optional<std::string> attribute(const Path& path, const char* name) {
  return filledBy(
      [&](char* bytes, std::size_t size) { return ::getxattr(path.c_str(), name, bytes, size); });
}

/// Copies the attributes that the system lets us copy. Access control lists are left out: one kind
/// is copied by a function of its own, and other kinds may give rights to the owning group.
void copyAttributes(const Path& from, int file) {
  const auto names = filledBy(
      [&](char* bytes, std::size_t size) { return ::listxattr(from.c_str(), bytes, size); });
  if (!names) return;
  for (std::string_view rest = *names; !rest.empty();) {
    const std::string name(rest.substr(0, rest.find('\0')));
    rest.remove_prefix(name.size() + 1);
    const auto value = name.starts_with("system.") ? std::nullopt : attribute(from, name.c_str());
    if (value) ::fsetxattr(file, name.c_str(), value->data(), value->size(), 0);
  }
}

bool hasNone(int error) {
  return error == ENODATA || error == ENOTSUP;
}

/// Leaves the owning group and everybody else only the rights that both have. The new file has
/// another group: its members had the rights of everybody else before, and members of the old group
/// have them now.
mode_t withSharedRights(mode_t mode) {
  constexpr mode_t kOthers = 7;
  constexpr unsigned kToGroup = 3;
  const mode_t shared = (mode >> kToGroup) & mode & kOthers;
  return (mode & ~mode_t{077}) | (shared << kToGroup) | shared;
}

void shareRights(std::string& list) {
  char shared = 7;
  for (const bool known : {false, true}) {
    for (std::size_t at = kHead; at + kEntry <= list.size(); at += kEntry) {
      if (list[at] != kOwningGroup && list[at] != kEverybody) continue;
      char& rights = list[at + kRights];
      if (known) rights = shared;
      shared = static_cast<char>(shared & rights);
    }
  }
}

}  // namespace

bool File::takeAfter(const Path& other) const {
  constexpr mode_t kPermissions = 0777;
  constexpr mode_t kAllModeBits = 07777;
  const int file = static_cast<int>(handle_);
  struct stat wanted {};
  struct stat own {};
  if (::stat(other.c_str(), &wanted) != 0) return false;
  // Owner and group one by one, because a user may change the group of a file, but not the owner.
  const bool groupGiven = ::fchown(file, static_cast<uid_t>(-1), wanted.st_gid) == 0;
  const bool ownerGiven = ::fchown(file, wanted.st_uid, static_cast<gid_t>(-1)) == 0;
  if (!(groupGiven && ownerGiven) && ::fstat(file, &own) != 0) return false;
  const bool sameGroup = groupGiven || own.st_gid == wanted.st_gid;
  const bool sameOwner = ownerGiven || own.st_uid == wanted.st_uid;
  copyAttributes(other, file);

  auto list = attribute(other, kAccessList);
  if (!list && !hasNone(errno)) return false;
  if (list && !sameGroup) shareRights(*list);
  // The old file has no list, but the folder may have given one to this file.
  // NOLINTNEXTLINE(clang-analyzer-cplusplus.InnerPointer): nothing has freed the list
  const int listed = list ? ::fsetxattr(file, kAccessList, list->data(), list->size(), 0)
                          : ::fremovexattr(file, kAccessList);
  if (listed != 0 && (list || !hasNone(errno))) return false;
  // A set-user-id bit is kept only together with the owner, because it would otherwise let
  // everybody run the file as somebody else.
  const mode_t mode = wanted.st_mode & (sameGroup && sameOwner ? kAllModeBits : kPermissions);
  if (list && !sameGroup) return true;
  return ::fchmod(file, sameGroup ? mode : withSharedRights(mode)) == 0;
}

}  // namespace kvrnstep::platform::native
