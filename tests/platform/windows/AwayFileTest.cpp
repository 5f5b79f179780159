#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "platform/FileSystem.h"
#include "platform/windows/SystemPath.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

TEST(AwayFile, IsListedWithoutBeingOpened) {
  const TempFolder folder;
  PathList list;
  for (int i = 0; i < 20; ++i) {
    const std::string path = folder.Write(std::to_string(i) + ".mid", "content");
    list.Add(folder.Path(), std::to_string(i) + ".mid");
    const DWORD attributes = i % 2 == 0 ? FILE_ATTRIBUTE_OFFLINE : FILE_ATTRIBUTE_NORMAL;
    ASSERT_TRUE(::SetFileAttributesW(SystemPath(path)->c_str(), attributes));
  }
  const DWORD kept = ::GetFileAttributesW(SystemPath(folder.At("0.mid"))->c_str());
  if ((kept & FILE_ATTRIBUTE_OFFLINE) == 0) GTEST_SKIP() << "the attribute is not kept here";
  for (const bool ahead : {true, false}) {
    const auto files = MakeFileReads({.readAhead = ahead});
    const auto reading = files->ReadInTurn(list, [](const PathList::File&) {
      return FileNeeds{FileNeeds::What::kContents, 100};
    });
    for (int i = 0; i < 20; ++i) {
      reading->Next();
      EXPECT_EQ(reading->Open() == nullptr, i % 2 == 0) << i;
      const auto status = reading->Status();
      ASSERT_TRUE(status.Ok());
      EXPECT_EQ(status->length, 7U);
    }
  }
}

}  // namespace
}  // namespace quillon::test
