#include <windows.h>

#include <aclapi.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sddl.h>

#include <string>
#include <thread>

#include "platform/windows/CopySteps.h"
#include "platform/windows/Wide.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

std::wstring Wide(const std::string& path) {
  return ToWide(path).value_or(L"");
}

/// Moves "here\\song" to "there\\song" by copying, although both folders are on one volume; step by step, so that tests
/// can act between the steps.
class CopyStepsOfTheSystem : public testing::Test {
 protected:
  void SetUp() override {
    from_ = folder_.Write("here/song", "content");
    there_ = folder_.MakeFolder("there");
    to_ = there_ + "song";
    ASSERT_EQ(steps_.OpenSource(from_), std::nullopt);
  }

  void CopyAndPublish() {
    ASSERT_TRUE(steps_.CopyInto(there_));
    ASSERT_EQ(steps_.Publish(to_), std::nullopt);
  }

  TempFolder folder_;
  std::string from_;
  std::string there_;
  std::string to_;
  WindowsCopySteps steps_;
};

TEST_F(CopyStepsOfTheSystem, CopyPublishAndDeleteTheSource) {
  CopyAndPublish();
  EXPECT_EQ(steps_.LookAtSource(), SourceNow::kUnchanged);
  EXPECT_EQ(steps_.RemoveSource(), std::nullopt);
  EXPECT_EQ(steps_.LookAtSource(), SourceNow::kGone);
  EXPECT_EQ(folder_.Read("there/song"), "content");
  EXPECT_FALSE(folder_.Exists("here/song"));
}

TEST_F(CopyStepsOfTheSystem, NobodyCanWriteToTheSourceMeanwhile) {
  constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const Handle writer(::CreateFileW(Wide(from_).c_str(), GENERIC_WRITE, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
  EXPECT_FALSE(writer.Open());
}

TEST_F(CopyStepsOfTheSystem, AFileThatHasTakenTheSourcesPlaceIsNotDeleted) {
  CopyAndPublish();
  const std::string aside = folder_.At("here/aside");
  ASSERT_TRUE(::MoveFileW(Wide(from_).c_str(), Wide(aside).c_str()));
  EXPECT_EQ(steps_.LookAtSource(), SourceNow::kGone);
  folder_.Write("here/song", "another");
  EXPECT_EQ(steps_.LookAtSource(), SourceNow::kReplaced);
  EXPECT_TRUE(steps_.RemoveSource());
  EXPECT_EQ(folder_.Read("here/song"), "another");
}

TEST_F(CopyStepsOfTheSystem, ASourceWithAnotherTimeIsNotDeleted) {
  CopyAndPublish();
  {
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const Handle file(
        ::CreateFileW(Wide(from_).c_str(), FILE_WRITE_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    const FILETIME old = {0, 0x01C00000};
    ASSERT_TRUE(::SetFileTime(file.Get(), nullptr, nullptr, &old));
  }
  EXPECT_EQ(steps_.LookAtSource(), SourceNow::kModified);
  EXPECT_TRUE(steps_.RemoveSource());
  EXPECT_EQ(folder_.Read("here/song"), "content");
}

TEST_F(CopyStepsOfTheSystem, OnlyTheCopyItselfIsDeleted) {
  ASSERT_TRUE(steps_.CopyInto(there_));
  folder_.Write("there/song", "rival");
  EXPECT_EQ(steps_.RemoveCopy(to_), std::nullopt);
  EXPECT_EQ(folder_.Read("there/song"), "rival");
  EXPECT_EQ(steps_.RemoveCopy(steps_.Temporary()), std::nullopt);
  EXPECT_EQ(::GetFileAttributesW(Wide(steps_.Temporary()).c_str()), INVALID_FILE_ATTRIBUTES);
  EXPECT_EQ(steps_.RemoveCopy(there_ + "absent"), std::nullopt);
}

TEST_F(CopyStepsOfTheSystem, AReadOnlySourceIsDeletedToo) {
  ASSERT_TRUE(::SetFileAttributesW(Wide(from_).c_str(), FILE_ATTRIBUTE_READONLY));
  CopyAndPublish();
  EXPECT_EQ(steps_.RemoveSource(), std::nullopt);
  EXPECT_FALSE(folder_.Exists("here/song"));
}

/// The file's access list as text, "" when it cannot be read.
std::wstring AccessListOf(const std::string& path) {
  void* descriptor = nullptr;
  if (::GetNamedSecurityInfoW(Wide(path).c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, nullptr,
                              nullptr, &descriptor) != ERROR_SUCCESS) {
    return {};
  }
  wchar_t* text = nullptr;
  std::wstring list;
  if (::ConvertSecurityDescriptorToStringSecurityDescriptorW(descriptor, SDDL_REVISION_1, DACL_SECURITY_INFORMATION,
                                                             &text, nullptr)) {
    list = text;
  }
  ::LocalFree(text);
  ::LocalFree(descriptor);
  return list;
}

bool SetAccessList(const std::string& path, const wchar_t* list) {
  void* descriptor = nullptr;
  if (!::ConvertStringSecurityDescriptorToSecurityDescriptorW(list, SDDL_REVISION_1, &descriptor, nullptr))
    return false;
  const bool set = ::SetFileSecurityW(Wide(path).c_str(), DACL_SECURITY_INFORMATION, descriptor) != 0;
  ::LocalFree(descriptor);
  return set;
}

TEST_F(CopyStepsOfTheSystem, TheAccessListsOwnEntriesAreKept) {
  // Full access for the owner, none for others.
  ASSERT_TRUE(SetAccessList(from_, L"D:P(A;;FA;;;OW)(A;;FA;;;BA)"));
  const std::wstring list = AccessListOf(from_);
  const std::string other = folder_.Write("there/other", "");
  ASSERT_NE(AccessListOf(other), list) << "the folder's files have it anyway";
  const MoveOutcome copied = steps_.CopyInto(there_);
  ASSERT_TRUE(copied);
  EXPECT_EQ(*copied, NotKept());
  ASSERT_EQ(steps_.Publish(to_), std::nullopt);
  EXPECT_EQ(AccessListOf(to_), list);
}

/// Opens a file exclusively for a moment, like a virus scanner.
class Scanner {
 public:
  Scanner(const std::string& path, DWORD milliseconds)
      : file_(::CreateFileW(Wide(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr)),
        thread_([this, milliseconds] {
          ::Sleep(milliseconds);
          file_.Close();
        }) {}
  Scanner(const Scanner&) = delete;
  Scanner& operator=(const Scanner&) = delete;
  ~Scanner() { thread_.join(); }

 private:
  Handle file_;
  std::thread thread_;
};

TEST(SharingViolations, ThatEndSoonAreRetried) {
  const TempFolder folder;
  const std::string file = folder.Write("file", "content");
  const auto changes = MakeFileChanges();
  {
    const Scanner scanner(file, 100);
    EXPECT_EQ(changes->Rename(file, folder.At("renamed")), std::nullopt);
  }
  const Scanner scanner(folder.At("renamed"), 100);
  EXPECT_EQ(changes->Remove(folder.At("renamed")), std::nullopt);
}

TEST(SharingViolations, ThatLastAreAnError) {
  const TempFolder folder;
  const std::string file = folder.Write("file", "content");
  const Scanner scanner(file, 1000);
  const FileOutcome outcome = MakeFileChanges()->Remove(file);
  ASSERT_TRUE(outcome);
  EXPECT_EQ(outcome->number, file_error::kAccess);
}

}  // namespace
}  // namespace quillon::test
