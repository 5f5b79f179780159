#include <gtest/gtest.h>

#include "app/HelpFile.h"

namespace quillon {
namespace {

TEST(HelpFile, OnWindowsIsTheCompiledFileOfTheProgramsName) {
  EXPECT_EQ(HelpFilePath("C:\\Tools\\", "Renamer", PathStyle::kWindows), "C:\\Tools\\Renamer.chm");
}

TEST(HelpFile, OnLinuxIsTheFirstOfThePages) {
  EXPECT_EQ(HelpFilePath("/usr/lib/quillon/", "quillon", PathStyle::kLinux), "/usr/lib/quillon/help/index.html");
}

}  // namespace
}  // namespace quillon
