#include "platform/linux/VolumeNameUnit.h"

#include <linux/magic.h>

#include <algorithm>
#include <array>

namespace quillon {
namespace {

// The magic numbers of drivers that are missing in the system's header.
constexpr unsigned long kNtfs = 0x5346544E;
constexpr unsigned long kNtfs3 = 0x7366746E;
constexpr unsigned long kHfsPlus = 0x482B;

}  // namespace

NameUnit NameUnitOfType(unsigned long type) {
  constexpr std::array<unsigned long, 6> kUtf16Types = {MSDOS_SUPER_MAGIC, EXFAT_SUPER_MAGIC, kNtfs, kNtfs3,
                                                        kHfsPlus,          FUSE_SUPER_MAGIC};
  const bool utf16 = std::find(kUtf16Types.begin(), kUtf16Types.end(), type) != kUtf16Types.end();
  return utf16 ? NameUnit::kUtf16 : NameUnit::kByte;
}

}  // namespace quillon
