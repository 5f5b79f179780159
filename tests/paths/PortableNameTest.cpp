#include <gtest/gtest.h>

#include "paths/PortableName.h"
#include "paths/basFileControl.h"
#include "platform/WindowsPath.h"

namespace quillon::test {
namespace {

TEST(PortableName, EverySystemCanHoldIt) {
  const struct {
    const char* name;
    const char* portable;
  } kCases[] = {{"song", "song"},
                {"荒城の月", "荒城の月"},
                {"a/b: c?", "a／b： c？"},
                {"a\tb\x7F\u0085", "ab"},
                {"end. . .", "end"},
                {" front", " front"},
                {"...", ""},
                {"CON", "CON_"},
                {"nul", "nul_"},
                {"com1.live", "com1_.live"},
                {"Lpt9 .x", "Lpt9_ .x"},
                {"COM²", "COM²_"},
                {"COM0", "COM0"},
                {"COM10", "COM10"},
                {"CONCERT", "CONCERT"},
                {"CON?", "CON？"},
                {"aux\n", "aux_"},
                {"x\xFFy", "x\xFFy"}};
  for (const auto& row : kCases) {
    EXPECT_EQ(PortableName(row.name), row.portable) << row.name;
    if (*row.portable == '\0') continue;
    EXPECT_TRUE(CanNameWindowsFile(std::string(row.portable) + ".mp3"));
    EXPECT_EQ(InvalidCharacterPosition(row.portable), 0);
  }
}

}  // namespace
}  // namespace quillon::test
