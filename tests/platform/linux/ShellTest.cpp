#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "platform/Shell.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

TEST(OpenWithShell, Returns31ForAFileThatNoProgramOpens) {
  for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY"}) {
    if (std::getenv(display) != nullptr) GTEST_SKIP() << "a program of the tester's desktop might open it";
  }
  const test::TempFolder folder;
  EXPECT_EQ(OpenWithShell(folder.Write("a.no-program-knows-this", std::string("\0\1", 2))), kShellNoProgram);
}

}  // namespace
}  // namespace quillon
