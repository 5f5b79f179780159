#include <gtest/gtest.h>

#include "plan/RenameLog.h"

namespace quillon::test {
namespace {

constexpr FileIdentity kFile = {7, 0xFFFFFFFFFFFFFFFFU, 3, -1};
constexpr FileIdentity kCopy = {8, 2, 3, 5};

RenameLog Read(const std::string& text) {
  const Result<RenameLog, std::size_t> log = ReadRenameLog(text);
  EXPECT_TRUE(log.Ok());
  return log ? *log : RenameLog{};
}

TEST(RenameLog, ARenameIsReadAsItWasWritten) {
  for (const char* const name : {"/a/b.mp3", "C:\\\"あ\"", "/\xFF\x80.mp3", "/line\nfeed"}) {
    const std::string from = name;
    const std::string to = from + "2";
    const RenameLog log = Read(RenameLine(from, to, kFile));
    ASSERT_EQ(log.renames.size(), 1U);
    EXPECT_EQ(log.renames[0], (LoggedRename{from, to, kFile}));
    EXPECT_FALSE(log.torn);
  }
}

TEST(RenameLog, ARenameIsOneLine) {
  const std::string line = RenameLine("/line\nfeed", "/b", kFile);
  EXPECT_EQ(line.find('\n'), line.size() - 1);
  EXPECT_EQ(RenameLine("/a", "/b", {1, 2, 3, 4}),
            "{\"old\":\"/a\",\"new\":\"/b\",\"device\":1,\"file\":2,\"size\":3,\"mtime\":4}\n");
}

TEST(RenameLog, FurtherLinesBelongToTheLatestRenameWithTheirPaths) {
  const std::string rename = RenameLine("/a", "/b", kFile);
  const RenameLog log = Read(rename + rename + RenameLine("/b", "/a", kFile) + FailedLine("/a", "/b", 75) +
                             CopiedLine("/b", "/a", kCopy));
  ASSERT_EQ(log.renames.size(), 3U);
  EXPECT_FALSE(log.renames[0].failed);
  EXPECT_TRUE(log.renames[1].failed);
  EXPECT_EQ(log.renames[2].copy, kCopy);
}

TEST(RenameLog, ATornLastLineIsPassedOver) {
  const std::string whole = RenameLine("/a", "/b", kFile);
  for (std::size_t length = 1; length < whole.size(); ++length) {
    const RenameLog log = Read(whole + whole.substr(0, length));
    EXPECT_EQ(log.renames.size(), 1U);
    EXPECT_TRUE(log.torn);
  }
}

TEST(RenameLog, EveryOtherDamagedLineIsAnErrorWithItsNumber) {
  const std::string whole = RenameLine("/a", "/b", kFile);
  const std::string torn = whole.substr(0, whole.size() / 2) + "\n";
  const std::string damaged[] = {torn,
                                 "\n",
                                 "[]\n",
                                 "{}\n",
                                 "{\"old\":\"/a\",\"new\":\"/b\"}\n",
                                 "{\"old\":\"\",\"new\":\"/b\",\"device\":1,\"file\":2,\"size\":3,\"mtime\":4}\n",
                                 "{\"old\":\"/a\",\"new\":\"/b\",\"device\":1,\"file\":-2,\"size\":3,\"mtime\":4}\n",
                                 "{\"old\":\"/a\",\"new\":\"/b\",\"device\":1,\"file\":2.5,\"size\":3,\"mtime\":4}\n",
                                 "{\"old\":\"/a\",\"old_bytes\":\"0\",\"new\":\"/b\",\"device\":1,\"file\":2,"
                                 "\"size\":3,\"mtime\":4}\n",
                                 FailedLine("/x", "/y", 75),
                                 CopiedLine("/x", "/y", kCopy)};
  for (const std::string& line : damaged) {
    SCOPED_TRACE(line);
    const Result<RenameLog, std::size_t> log = ReadRenameLog(whole + line + whole);
    ASSERT_FALSE(log.Ok());
    EXPECT_EQ(log.Failure(), 2U);
  }
}

}  // namespace
}  // namespace quillon::test
