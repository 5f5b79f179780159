#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cerrno>
#include <csignal>
#include <string>

#include "platform/AppendedFile.h"
#include "platform/linux/ChildProcess.h"
#include "platform/linux/FailingCalls.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

TEST(AppendedFileOnAFullDisk, HoldsNoPartOfATextThatDidNotFit) {
  const TempFolder folder;
  const std::string path = folder.Write("log", "first\n");
  const int result = RunInChild([&] {
    const rlimit limit = {20, RLIM_INFINITY};
    if (::signal(SIGXFSZ, SIG_IGN) == SIG_ERR || ::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 1;
    const auto file = OpenAppendedFile(path);
    if (!file || (*file)->Append("second\n")) return 2;
    return (*file)->Append("a third, which is too long\n") ? 0 : 3;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(folder.Read("log"), "first\nsecond\n");
}

TEST(AppendedFileOnAFullDisk, IsNotWrittenWhenItsLengthIsUnknown) {
  const TempFolder folder;
  const std::string path = folder.Write("log", "first\n");
  const int result = RunInChild([&] {
    const auto file = OpenAppendedFile(path);
    if (!file) return 1;
    if (!MakeFail(FailingFstat(EIO))) return kCannotSetUp;
    return (*file)->Append("second\n") ? 0 : 2;
  });
  if (result == kCannotSetUp) GTEST_SKIP() << kNoFailingCalls;
  EXPECT_EQ(result, 0);
  EXPECT_EQ(folder.Read("log"), "first\n");
}

}  // namespace
}  // namespace quillon::test
