#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/posix_acl.h>
#include <linux/posix_acl_xattr.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "platform/WholeFile.h"
#include "platform/linux/ChildProcess.h"
#include "platform/linux/CopyAttributes.h"
#include "platform/linux/Descriptor.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

constexpr const char* kAccessList = "system.posix_acl_access";
constexpr const char* kDefaultList = "system.posix_acl_default";
constexpr unsigned kSomebody = 12;

/// The bytes of an access list: the owner and one other user may read and write, everybody else nothing.
std::string ListOf(unsigned owningGroup, unsigned mask) {
  std::string bytes(sizeof(posix_acl_xattr_header), '\0');
  const posix_acl_xattr_header header = {POSIX_ACL_XATTR_VERSION};
  std::memcpy(bytes.data(), &header, sizeof header);
  const auto add = [&bytes](unsigned tag, unsigned rights, unsigned number) {
    posix_acl_xattr_entry entry = {};
    entry.e_tag = static_cast<__le16>(tag);
    entry.e_perm = static_cast<__le16>(rights);
    entry.e_id = number;
    bytes.append(reinterpret_cast<const char*>(&entry), sizeof entry);
  };
  constexpr unsigned kNobody = ~0U;
  add(ACL_USER_OBJ, 6, kNobody);
  add(ACL_USER, 6, kSomebody);
  add(ACL_GROUP_OBJ, owningGroup, kNobody);
  add(ACL_MASK, mask, kNobody);
  add(ACL_OTHER, 0, kNobody);
  return bytes;
}

bool SetAttribute(const std::string& path, const char* name, const std::string& value) {
  return ::setxattr(path.c_str(), name, value.data(), value.size(), 0) == 0;
}

std::optional<std::string> Attribute(const std::string& path, const char* name) {
  std::array<char, 256> value = {};
  const ssize_t length = ::getxattr(path.c_str(), name, value.data(), value.size());
  if (length < 0) return std::nullopt;
  return std::string(value.data(), static_cast<std::size_t>(length));
}

mode_t ModeOf(const std::string& path) {
  struct stat status = {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777u : 0;
}

/// Copies the attributes to a file that is created like a copy.
NotKept Copy(const std::string& from, const std::string& to) {
  const Descriptor source(::open(from.c_str(), O_RDONLY | O_CLOEXEC));
  const Descriptor copy(::open(to.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
  struct stat status = {};
  if (!source.Open() || !copy.Open() || ::fstat(source.Number(), &status) != 0) return {true, true, true};
  return CopyAttributes(source.Number(), copy.Number(), status);
}

class CopiedAttributes : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(::chmod(folder_.Path().c_str(), 0777), 0);
    ASSERT_EQ(::chmod(from_.c_str(), 0640), 0);
  }

  /// The same in a child process, on a volume in memory without access lists and attributes. Returns the copy's mode
  /// plus kTold... for what was reported as not kept; kCannotSetUp where no volume can be mounted.
  [[nodiscard]] int CopyToBareVolume(NotKept expected, mode_t expectedMode) const {
    return RunInChild([&] {
      if (!MountPrivately("ramfs", "none", bare_, "")) return kCannotSetUp;
      const std::string to = bare_ + "copy";
      if (SetAttribute(bare_, kAccessList, ListOf(0, 6))) return kCannotSetUp;
      if (Copy(from_, to) != expected) return 1;
      return ModeOf(to) == expectedMode ? 0 : 2;
    });
  }

  TempFolder folder_;
  std::string from_ = folder_.Write("from", "content");
  std::string to_ = folder_.At("to");
  std::string bare_ = folder_.MakeFolder("bare");
};

constexpr const char* kNoLists = "this volume has no access lists";
constexpr const char* kNoMount = "no volume without access lists can be mounted without root";

TEST_F(CopiedAttributes, AnAccessListIsKept) {
  const std::string list = ListOf(0, 6);
  if (!SetAttribute(from_, kAccessList, list)) GTEST_SKIP() << kNoLists;
  EXPECT_EQ(Copy(from_, to_), NotKept());
  EXPECT_EQ(Attribute(to_, kAccessList), list);
  EXPECT_EQ(ModeOf(to_), 0660U);
}

TEST_F(CopiedAttributes, WithoutItsListTheGroupGetsWhatTheListGaveTheOwningGroup) {
  struct Row {
    unsigned owningGroup;
    unsigned mask;
    mode_t expected;
  };
  for (const Row& row : {Row{0, 6, 0600}, Row{4, 6, 0640}, Row{6, 6, 0660}, Row{6, 4, 0640}, Row{7, 0, 0600}}) {
    SCOPED_TRACE(testing::Message() << row.owningGroup << " masked by " << row.mask);
    if (!SetAttribute(from_, kAccessList, ListOf(row.owningGroup, row.mask))) GTEST_SKIP() << kNoLists;
    const int result = CopyToBareVolume({.accessRights = true}, row.expected);
    if (result == kCannotSetUp) GTEST_SKIP() << kNoMount;
    EXPECT_EQ(result, 0);
  }
}

TEST_F(CopiedAttributes, WithoutAListThePermissionsAreKeptOnAnyVolume) {
  const int result = CopyToBareVolume({}, 0640);
  if (result == kCannotSetUp) GTEST_SKIP() << kNoMount;
  EXPECT_EQ(result, 0);
}

TEST_F(CopiedAttributes, TheFoldersDefaultListIsNotInherited) {
  const std::string heir = folder_.MakeFolder("heir");
  if (!SetAttribute(heir, kDefaultList, ListOf(6, 6))) GTEST_SKIP() << kNoLists;
  const std::string probe = folder_.Write("heir/probe", "");
  ASSERT_NE(Attribute(probe, kAccessList), std::nullopt) << "the folder hands its list down";
  EXPECT_EQ(Copy(from_, heir + "copy"), NotKept());
  EXPECT_EQ(Attribute(heir + "copy", kAccessList), std::nullopt);
  EXPECT_EQ(ModeOf(heir + "copy"), 0640U);
}

TEST_F(CopiedAttributes, SetByAUserAreKeptOrReported) {
  if (!SetAttribute(from_, "user.comment", "hello")) GTEST_SKIP() << "this volume has no extended attributes";
  EXPECT_EQ(Copy(from_, to_), NotKept());
  EXPECT_EQ(Attribute(to_, "user.comment"), "hello");
  const int result = CopyToBareVolume({.attributes = true}, 0640);
  if (result == kCannotSetUp) GTEST_SKIP() << kNoMount;
  EXPECT_EQ(result, 0);
}

TEST_F(CopiedAttributes, AFileThatIsReplacedWholeKeepsItsAccessList) {
  const std::string list = ListOf(0, 6);
  if (!SetAttribute(from_, kAccessList, list)) GTEST_SKIP() << kNoLists;
  EXPECT_EQ(ReplaceWholeFile(from_, "new"), std::nullopt);
  EXPECT_EQ(Attribute(from_, kAccessList), list);
  EXPECT_EQ(ModeOf(from_), 0660U);
}

// Simulates a volume with one mode and one time for all files.
TEST_F(CopiedAttributes, TimesAndPermissionsThatCannotBeSetAreReported) {
  if (::geteuid() != 0) GTEST_SKIP() << "a file of somebody else can only be made by root";
  ASSERT_EQ(::chmod(from_.c_str(), 0644), 0);
  struct Row {
    mode_t mode;
    bool othersGetMore;
  };
  for (const Row& row : {Row{0666, true}, Row{0662, true}, Row{0606, true}, Row{0757, true}}) {
    SCOPED_TRACE(row.mode);
    folder_.Write("to", "");
    ASSERT_EQ(::chmod(to_.c_str(), row.mode), 0);
    const NotKept expected = {.times = true, .accessRights = row.othersGetMore};
    EXPECT_EQ(RunAsOrdinaryUser([&] { return Copy(from_, to_) == expected ? 0 : 1; }), 0);
  }
}

TEST_F(CopiedAttributes, ALostOwnerIsReportedAndSetUidIsRemoved) {
  if (::geteuid() != 0) GTEST_SKIP() << "a file of somebody else can only be made by root";
  ASSERT_EQ(::chmod(from_.c_str(), 06755), 0);
  EXPECT_EQ(RunAsOrdinaryUser([&] { return Copy(from_, to_) == NotKept{.accessRights = true} ? 0 : 1; }), 0);
  EXPECT_EQ(ModeOf(to_), 0755U);
  EXPECT_EQ(Copy(from_, folder_.At("kept")), NotKept());
  EXPECT_EQ(ModeOf(folder_.At("kept")), 06755U);
}

TEST_F(CopiedAttributes, AnotherGroupGetsNoMoreThanOthers) {
  if (::geteuid() != 0) GTEST_SKIP() << "a file of somebody else can only be made by root";
  ASSERT_EQ(::chmod(from_.c_str(), 0664), 0);
  EXPECT_EQ(RunAsOrdinaryUser([&] { return Copy(from_, to_) == NotKept{.accessRights = true} ? 0 : 1; }), 0);
  EXPECT_EQ(ModeOf(to_), 0644U);
}

}  // namespace
}  // namespace quillon::test
