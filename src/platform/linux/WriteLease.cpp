#include "platform/linux/WriteLease.h"

#include <fcntl.h>
#include <linux/magic.h>
#include <sys/vfs.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>

namespace quillon {
namespace {

// On network volumes a refused lease says nothing about writers.
bool IsOfAnotherMachine(int file) {
  constexpr std::array<unsigned long, 8> kNetworks = {NFS_SUPER_MAGIC,  SMB_SUPER_MAGIC, CIFS_SUPER_MAGIC,
                                                      SMB2_SUPER_MAGIC, AFS_SUPER_MAGIC, CEPH_SUPER_MAGIC,
                                                      V9FS_MAGIC,       FUSE_SUPER_MAGIC};
  struct statfs volume = {};
  if (::fstatfs(file, &volume) != 0) return true;
  // Some magic numbers are negative as signed 32-bit numbers.
  const auto magic = static_cast<unsigned long>(volume.f_type) & 0xFFFFFFFFUL;
  return std::find(kNetworks.begin(), kNetworks.end(), magic) != kNetworks.end();
}

}  // namespace

WriteLease::WriteLease(int file) : file_(file) {
  // The system signals a new writer. SIGURG is ignored by default, so it does no harm.
  if (::fcntl(file, F_SETSIG, SIGURG) != 0) return;
  held_ = ::fcntl(file, F_SETLEASE, F_RDLCK) == 0;
  refused_ = !held_ && errno == EAGAIN && !IsOfAnotherMachine(file);
}

WriteLease::~WriteLease() {
  if (held_) ::fcntl(file_, F_SETLEASE, F_UNLCK);
}

}  // namespace quillon
