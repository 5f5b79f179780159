#include <gtest/gtest.h>
#include <linux/magic.h>

#include "platform/FileSystem.h"
#include "platform/linux/VolumeNameUnit.h"

namespace quillon::test {
namespace {

TEST(VolumeNameUnit, VolumesOfWindowsCountUtf16Units) {
  for (const unsigned long type : {0x4D44UL, 0x2011BAB0UL, 0x5346544EUL, 0x7366746EUL}) {  // FAT, exFAT, NTFS, NTFS 3
    EXPECT_EQ(NameUnitOfType(type), NameUnit::kUtf16) << std::hex << type;
  }
  EXPECT_EQ(NameUnitOfType(FUSE_SUPER_MAGIC), NameUnit::kUtf16) << "it may be NTFS";
}

TEST(VolumeNameUnit, OthersCountBytes) {
  for (const unsigned long type : {0UL + EXT4_SUPER_MAGIC, 0UL + TMPFS_MAGIC, 0UL + NFS_SUPER_MAGIC}) {
    EXPECT_EQ(NameUnitOfType(type), NameUnit::kByte) << std::hex << type;
  }
  EXPECT_EQ(NameUnitOfType(BTRFS_SUPER_MAGIC), NameUnit::kByte) << "with the highest bit set";
}

TEST(VolumeNameUnit, IsThatOfTheVolumeWhereTheFolderIs) {
  const auto files = MakeFileReads();
  EXPECT_EQ(files->NameUnitOf("/proc/"), NameUnit::kByte);
  EXPECT_EQ(files->NameUnitOf("/nowhere/"), NameUnit::kUtf16) << "it cannot be known";
}

}  // namespace
}  // namespace quillon::test
