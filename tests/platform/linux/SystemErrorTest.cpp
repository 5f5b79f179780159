#include <gtest/gtest.h>

#include <cerrno>

#include "platform/linux/SystemError.h"

namespace quillon::test {
namespace {

TEST(SystemError, NumbersForFilesAreThoseOfTheLogic) {
  for (const int number : {ENOENT, ENOTDIR, ENAMETOOLONG, EINVAL, EILSEQ}) {
    EXPECT_EQ(ErrorOf(number).number, file_error::kNotFound) << number;
  }
  for (const int number : {EACCES, EPERM, EROFS, EBUSY, ETXTBSY, EISDIR}) {
    EXPECT_EQ(ErrorOf(number).number, file_error::kAccess) << number;
  }
  EXPECT_EQ(ErrorOf(EEXIST).number, file_error::kAlreadyExists);
}

TEST(SystemError, OtherNumbersAreKeptWithoutCollisions) {
  for (const int number : {ELOOP, EIO, ENOSPC, EDQUOT, EFBIG, EXDEV, EMFILE, EBADE, EBADR, ENOANO, EOVERFLOW}) {
    EXPECT_EQ(ErrorOf(number).number, file_error::kOwn + number);
  }
}

TEST(SystemError, AMissingFolderIsUnreachable) {
  for (const int number : {ENOENT, ENOTDIR, ENAMETOOLONG, EINVAL, EILSEQ, ENODEV, ENXIO, ENOMEDIUM, EHOSTDOWN,
                           EHOSTUNREACH, ENETDOWN, ENETUNREACH, ETIMEDOUT, ENOTCONN, ECONNREFUSED, ESTALE}) {
    EXPECT_EQ(FolderErrorOf(number).number, file_error::kUnreachable) << number;
  }
  EXPECT_EQ(FolderErrorOf(EACCES).number, file_error::kAccess);
  EXPECT_EQ(FolderErrorOf(EIO).number, file_error::kOwn + EIO);
}

TEST(SystemError, DescriptionsAreTheSystemsWords) {
  EXPECT_EQ(ErrorOf(ENOENT).description, "No such file or directory");
  EXPECT_EQ(FolderErrorOf(EACCES).description, "Permission denied");
}

}  // namespace
}  // namespace quillon::test
