#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "settings/IniLine.h"

namespace quillon {
namespace {

TEST(SplitIniLines, KeepsEveryByte) {
  using Lines = std::vector<std::string>;
  EXPECT_EQ(SplitIniLines(""), Lines{});
  EXPECT_EQ(SplitIniLines("a"), Lines{"a"});
  EXPECT_EQ(SplitIniLines("a\r\nb\nc\rd"), (Lines{"a\r\n", "b\n", "c\r", "d"}));
  EXPECT_EQ(SplitIniLines("\r\r\n\n"), (Lines{"\r", "\r\n", "\n"}));
}

TEST(IniLineEnd, IsTheEndAlone) {
  EXPECT_EQ(IniLineEnd("a\r\n"), "\r\n");
  EXPECT_EQ(IniLineEnd("a\n"), "\n");
  EXPECT_EQ(IniLineEnd("\r"), "\r");
  EXPECT_EQ(IniLineEnd("a"), "");
  EXPECT_EQ(IniLineEnd(""), "");
}

TEST(AnsiToUtf8KeepingBytes, LosesNothing) {
  const struct {
    const char* name;
    std::string_view bytes;
    std::string_view expected;
  } rows[] = {
      {"ASCII", "a=b\r\n", "a=b\r\n"},
      {"two-byte characters", "\x89\xB9\x95\x5C", "音表"},
      {"half-width katakana", "\xB1", "ｱ"},
      {"a middle dot of its own", "\x81\x45", "・"},
      {"lead byte at the end", "a\x81", "a\x81"},
      {"lead byte before a line end", "\x81\r\n", "\x81\r\n"},
      {"lead byte before a blank", "\x81 \x89\xB9", "\x81 音"},
      {"a pair that stands for nothing", "\x85\x40\x89\xB9", "\x85\x40音"},
      {"a pair that Windows writes differently", "\xED\x40", "纊"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(AnsiToUtf8KeepingBytes(row.bytes), row.expected);
  }
}

}  // namespace
}  // namespace quillon
