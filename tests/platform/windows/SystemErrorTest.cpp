#include <gtest/gtest.h>

#include "platform/windows/SystemError.h"

namespace quillon::test {
namespace {

TEST(SystemError, NumbersForFilesAreThoseOfTheLogic) {
  for (const DWORD number : {2u, 3u, 66u, 87u, 123u, 161u, 206u, 267u}) {
    EXPECT_EQ(ErrorOf(number).number, file_error::kNotFound) << number;
  }
  for (const DWORD number : {5u, 19u, 32u, 33u, 170u, 1224u}) {
    EXPECT_EQ(ErrorOf(number).number, file_error::kAccess) << number;
  }
  for (const DWORD number : {80u, 183u}) EXPECT_EQ(ErrorOf(number).number, file_error::kAlreadyExists) << number;
}

TEST(SystemError, OtherNumbersAreKeptWithoutCollisions) {
  for (const DWORD number : {17u, 52u, 53u, 55u, 58u, 75u, 112u, 1117u}) {
    EXPECT_EQ(ErrorOf(number).number, file_error::kOwn + static_cast<int>(number));
  }
}

TEST(SystemError, AMissingFolderIsUnreachable) {
  for (const DWORD number : {2u,   3u,   15u,  20u,  21u,   53u,   55u,   64u,   67u,   87u,
                             121u, 123u, 206u, 267u, 1005u, 1112u, 1167u, 1222u, 1231u, 1232u}) {
    EXPECT_EQ(FolderErrorOf(number).number, file_error::kUnreachable) << number;
  }
  EXPECT_EQ(FolderErrorOf(5).number, file_error::kAccess);
  EXPECT_EQ(FolderErrorOf(1117).number, file_error::kOwn + 1117);
}

TEST(SystemError, DescriptionsAreOneLine) {
  const std::string description = ErrorOf(ERROR_ACCESS_DENIED).description;
  EXPECT_NE(description, "");
  EXPECT_EQ(description.find_first_of("\r\n"), std::string::npos);
}

}  // namespace
}  // namespace quillon::test
