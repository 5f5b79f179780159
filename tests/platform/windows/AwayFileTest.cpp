#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/windows/LocalFile.h"
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

/// What the system would say of a path, one answer for each question.
std::vector<DWORD> answers;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables): a function pointer's data

DWORD WINAPI NextAnswer(const wchar_t* /*path*/) {
  const DWORD answer = answers.empty() ? INVALID_FILE_ATTRIBUTES : answers.front();
  if (!answers.empty()) answers.erase(answers.begin());
  return answer;
}

TEST(AwayFile, IsNotOpenedNorIsALinkToOne) {
  const TempFolder folder;
  const std::string path = folder.Write("a.mid", "content");
  struct Case {
    std::vector<DWORD> attributes;
    bool opens;
  };
  const std::vector<Case> cases = {{{FILE_ATTRIBUTE_NORMAL}, true},
                                   {{FILE_ATTRIBUTE_OFFLINE}, false},
                                   {{0x400000}, false},
                                   {{0x40000}, false},
                                   {{FILE_ATTRIBUTE_OFFLINE | FILE_ATTRIBUTE_REPARSE_POINT}, false},
                                   {{FILE_ATTRIBUTE_REPARSE_POINT, FILE_ATTRIBUTE_OFFLINE}, false},
                                   {{FILE_ATTRIBUTE_REPARSE_POINT, FILE_ATTRIBUTE_NORMAL}, true},
                                   {{INVALID_FILE_ATTRIBUTES}, false}};
  for (const Case& c : cases) {
    answers = c.attributes;
    EXPECT_EQ(OpenLocalFile(path, &NextAnswer) != nullptr, c.opens) << c.attributes.front();
    EXPECT_TRUE(answers.empty()) << "each was asked for";
  }
  EXPECT_TRUE(OpenLocalFile(path));
  EXPECT_FALSE(OpenLocalFile(folder.At("absent.mid")));
}

}  // namespace
}  // namespace quillon::test
