#include "platform/linux/ExactNames.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/vfs.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <string_view>

#include "platform/linux/OpenFolder.h"
#include "platform/linux/SystemError.h"

namespace quillon {
namespace {

// Drivers for volumes of this system alone, which tell names apart by their bytes, and list them all. Some of them can
// ignore letter case in single folders.
bool NamesAreBytes(DIR* folder) {
  constexpr std::array<unsigned long, 6> kTypes = {EXT4_SUPER_MAGIC, BTRFS_SUPER_MAGIC,     F2FS_SUPER_MAGIC,
                                                   TMPFS_MAGIC,      OVERLAYFS_SUPER_MAGIC, XFS_SUPER_MAGIC};
  struct statfs volume = {};
  if (::fstatfs(::dirfd(folder), &volume) != 0) return false;
  // Some types are negative as signed 32-bit numbers.
  const unsigned long type = static_cast<unsigned long>(volume.f_type) & 0xFFFFFFFFUL;
  return std::find(kTypes.begin(), kTypes.end(), type) != kTypes.end();
}

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsListed(const std::string& names, const std::string& name) {
  const std::string ended = name + '\0';
  return names.starts_with(ended) || names.find('\0' + ended) != std::string::npos;
}

std::optional<bool> IsThere(DIR* folder, const std::string& name) {
  struct stat status = {};
  if (::fstatat(::dirfd(folder), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0) return true;
  return errno == ENOENT ? std::optional<bool>(false) : std::nullopt;
}

}  // namespace

bool TellsLetterCaseApart(const ExactNames& names, const IsNameThere& isThere) {
  constexpr char kOtherCase = 'a' - 'A';
  for (const std::string* const list : {&names.files, &names.others}) {
    const auto letter = std::find_if(list->begin(), list->end(), IsLetter);
    if (letter == list->end()) continue;
    const auto at = static_cast<std::size_t>(letter - list->begin());
    const std::size_t before = list->rfind('\0', at);
    const std::size_t start = before == std::string::npos ? 0 : before + 1;
    std::string name = list->substr(start, list->find('\0', at) - start);
    name[at - start] = static_cast<char>(name[at - start] ^ kOtherCase);
    const std::optional<bool> there = isThere(name);
    return there && (!*there || IsListed(names.files, name) || IsListed(names.others, name));
  }
  return false;
}

std::optional<ExactNames> ListExactNames(const std::string& folder) {
  if (HoldsNul(folder)) return std::nullopt;
  const OpenFolder open(::opendir(folder.c_str()));
  if (!open || !NamesAreBytes(open.get())) return std::nullopt;
  ExactNames names;
  errno = 0;
  while (const dirent* const entry = ::readdir(open.get())) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    std::string& list = entry->d_type == DT_REG ? names.files : names.others;
    list += name;
    list += '\0';
  }
  const auto isThere = [&](const std::string& name) { return IsThere(open.get(), name); };
  if (errno != 0 || !TellsLetterCaseApart(names, isThere)) return std::nullopt;
  return names;
}

}  // namespace quillon
