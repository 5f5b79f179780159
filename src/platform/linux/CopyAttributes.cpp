#include "platform/linux/CopyAttributes.h"

#include <linux/posix_acl.h>
#include <linux/posix_acl_xattr.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <optional>
#include <string_view>
#include <vector>

namespace quillon {
namespace {

constexpr const char* kAccessList = "system.posix_acl_access";
constexpr mode_t kGroupBits = 070;
constexpr mode_t kOtherBits = 07;
// Execute permission is not compared: volumes without permissions grant it to everybody.
constexpr mode_t kReadAndWriteBits = 0666;

// True for the errors that mean a missing attribute, as opposed to an unreadable one.
bool SaysNone(int number) {
  return number == ENODATA || number == EOPNOTSUPP;
}

// Calls `read` without a buffer to get the size, then with a buffer of that size. Returns the data; nullopt with errno
// set on failure.
template <class Read>
std::optional<std::vector<char>> ReadSized(Read read) {
  const ssize_t length = read(nullptr, 0);
  if (length < 0) return std::nullopt;
  std::vector<char> bytes(static_cast<std::size_t>(length));
  if (bytes.empty()) return bytes;
  const ssize_t got = read(bytes.data(), bytes.size());
  if (got < 0) return std::nullopt;
  bytes.resize(static_cast<std::size_t>(got));
  return bytes;
}

std::optional<std::vector<char>> Attribute(int file, const char* name) {
  return ReadSized([&](char* bytes, std::size_t size) { return ::fgetxattr(file, name, bytes, size); });
}

std::optional<std::vector<char>> AttributeNames(int file) {
  return ReadSized([&](char* bytes, std::size_t size) { return ::flistxattr(file, bytes, size); });
}

// Copies only the attributes set by users; the system's attributes depend on the volume.
bool CopyExtendedAttributes(int from, int to) {
  const std::optional<std::vector<char>> names = AttributeNames(from);
  if (!names) return SaysNone(errno);
  bool complete = true;
  for (std::size_t start = 0; start < names->size();) {
    const char* const name = names->data() + start;
    const std::string_view text(name);
    start += text.size() + 1;
    if (text == kAccessList) continue;
    const std::optional<std::vector<char>> value = Attribute(from, name);
    const bool copied = value && ::fsetxattr(to, name, value->data(), value->size(), 0) == 0;
    if (!copied && text.starts_with("user.")) complete = false;
  }
  return complete;
}

// The rights that the list grants to the owning group, as the group bits of a mode.
mode_t OwningGroupBits(const std::vector<char>& list) {
  unsigned group = 0;
  unsigned mask = 7;
  for (std::size_t at = sizeof(posix_acl_xattr_header); at + sizeof(posix_acl_xattr_entry) <= list.size();
       at += sizeof(posix_acl_xattr_entry)) {
    posix_acl_xattr_entry entry = {};
    std::memcpy(&entry, list.data() + at, sizeof entry);
    if (entry.e_tag == ACL_GROUP_OBJ) group = entry.e_perm;
    if (entry.e_tag == ACL_MASK) mask = entry.e_perm;
  }
  return static_cast<mode_t>((group & mask) << 3u);
}

// Sets the access list of `to` to `list`, or removes it when there is none.
bool CopyAccessList(const std::optional<std::vector<char>>& list, int to) {
  if (list) return ::fsetxattr(to, kAccessList, list->data(), list->size(), 0) == 0;
  return ::fremovexattr(to, kAccessList) == 0 || SaysNone(errno);
}

// Copies owner and group and returns true; if that fails, copies only the group, if the system allows it, and returns
// false.
bool CopyOwner(int to, const struct stat& source) {
  if (::fchown(to, source.st_uid, source.st_gid) == 0) return true;
  [[maybe_unused]] const int given = ::fchown(to, static_cast<uid_t>(-1), source.st_gid);
  return false;
}

// Copies the access rights. Returns true when the list was kept and nobody got more rights than before.
bool CopyAccessRights(int from, int to, const struct stat& source, bool sameOwner) {
  const std::optional<std::vector<char>> list = Attribute(from, kAccessList);
  const bool listKnown = list || SaysNone(errno);
  const bool listKept = listKnown && CopyAccessList(list, to);
  mode_t mode = source.st_mode & (sameOwner ? 07777u : 0777u);
  // With an access list, the mode's group bits are the list's mask, not the rights of the owning group.
  if (!listKept) mode = (mode & ~kGroupBits) | OwningGroupBits(list.value_or(std::vector<char>()));
  struct stat now = {};
  const bool groupKnown = ::fstat(to, &now) == 0;
  const bool sameGroup = groupKnown && now.st_gid == source.st_gid;
  // A different group gets no more rights than others.
  if (!sameGroup) mode &= ~kGroupBits | (mode & kOtherBits) << 3u;
  const bool modeKnown = ::fchmod(to, mode) == 0 || errno == EPERM || errno == EOPNOTSUPP;
  if (!groupKnown || !modeKnown || ::fstat(to, &now) != 0) return false;
  return listKept && (now.st_mode & ~mode & kReadAndWriteBits) == 0;
}

}  // namespace

bool CopyOwnerAndAccess(int from, int to, const struct stat& source) {
  return CopyAccessRights(from, to, source, CopyOwner(to, source));
}

NotKept CopyAttributes(int from, int to, const struct stat& source) {
  NotKept notKept;
  // This order matters: changing the owner removes some attributes and permissions, and a read-only file accepts no
  // attributes.
  const bool sameOwner = CopyOwner(to, source);
  notKept.attributes = !CopyExtendedAttributes(from, to);
  struct stat now = {};
  const bool ownerKept = ::fstat(to, &now) == 0 && now.st_uid == source.st_uid;
  notKept.accessRights = !CopyAccessRights(from, to, source, sameOwner) || !ownerKept;
  const std::array<timespec, 2> times = {source.st_atim, source.st_mtim};
  notKept.times = ::futimens(to, times.data()) != 0;
  return notKept;
}

}  // namespace quillon
