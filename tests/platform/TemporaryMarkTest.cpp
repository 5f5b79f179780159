#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/TemporaryMark.h"
#include "platform/TemporaryName.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

namespace fs = std::filesystem;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr const char* kName = ".quillon-0123456789ab";

class TemporaryMarks : public testing::Test {
 protected:
  [[nodiscard]] std::string Folder() const { return folder_.At(""); }

  [[nodiscard]] std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_.Path())) names.push_back(entry.path().filename().string());
    return names;
  }

  void SetAge(const std::string& name, std::chrono::hours age) const {
    fs::last_write_time(folder_.At(name), fs::file_time_type::clock::now() - age);
  }

  /// Leaves the files of a move that was killed this long ago.
  void LeaveBehind(std::string_view markText, std::chrono::hours age) {
    folder_.Write(kName, "half a copy");
    folder_.Write(MarkName(kName), markText);
    SetAge(MarkName(kName), age);
  }

  TempFolder folder_;
};

TEST_F(TemporaryMarks, StandBesideTheTemporaryFileAndGoWithTheObject) {
  {
    const auto mark = MarkTemporary(Folder());
    ASSERT_TRUE(mark);
    EXPECT_EQ((*mark)->Path().rfind(Folder(), 0), 0U);
    const std::string name = (*mark)->Path().substr(Folder().size());
    EXPECT_THAT(Names(), UnorderedElementsAre(MarkName(name)));
  }
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(TemporaryMarks, ThatAreKeptAreDeletedADayLaterWithTheirFiles) {
  std::string name;
  {
    const auto mark = MarkTemporary(Folder());
    ASSERT_TRUE(mark);
    name = (*mark)->Path().substr(Folder().size());
    folder_.Write(name, "half a copy");
    (*mark)->Keep();
  }
  EXPECT_THAT(Names(), UnorderedElementsAre(name, MarkName(name)));
  SetAge(MarkName(name), std::chrono::hours(25));
  RemoveMarkedLeftovers(Folder());
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(TemporaryMarks, InAMissingFolderAreAnError) {
  const auto mark = MarkTemporary(folder_.At("absent") + Folder().back());
  ASSERT_FALSE(mark);
  EXPECT_EQ(mark.Failure().number, file_error::kNotFound);
}

TEST_F(TemporaryMarks, LeftBehindADayAgoAreDeletedWithTheirFiles) {
  for (const std::string_view text : {kMarkText, kMarkText.substr(0, 20), std::string_view()}) {
    LeaveBehind(text, std::chrono::hours(25));
    RemoveMarkedLeftovers(Folder());
    EXPECT_THAT(Names(), IsEmpty()) << "with the text '" << text << "'";
  }
}

TEST_F(TemporaryMarks, LeftBehindWithoutAFileAreDeletedToo) {
  LeaveBehind(kMarkText, std::chrono::hours(25));
  fs::remove(folder_.At(kName));
  RemoveMarkedLeftovers(Folder());
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(TemporaryMarks, YoungerThanADayStayWithTheirFiles) {
  LeaveBehind(kMarkText, std::chrono::hours(23));
  RemoveMarkedLeftovers(Folder());
  EXPECT_THAT(Names(), UnorderedElementsAre(kName, MarkName(kName)));
}

TEST_F(TemporaryMarks, NothingElseIsDeleted) {
  LeaveBehind("somebody's own text", std::chrono::hours(1000));
  const std::string longer = std::string(kMarkText) + "and more";
  folder_.Write(".quillon-aaaaaaaaaaaa.mark", longer);
  SetAge(".quillon-aaaaaaaaaaaa.mark", std::chrono::hours(1000));
  for (const char* const name : {".quillon-abcdefghijkl", "song.mid", ".quillon-notmarked.mark", ".quillon-.mark"}) {
    folder_.Write(name, "somebody's");
    SetAge(name, std::chrono::hours(1000));
  }
  const std::vector<std::string> before = Names();
  RemoveMarkedLeftovers(Folder());
  EXPECT_THAT(Names(), testing::UnorderedElementsAreArray(before));
}

TEST_F(TemporaryMarks, AFolderOfThatNameStays) {
  folder_.MakeFolder(kName);
  folder_.Write(MarkName(kName), kMarkText);
  SetAge(MarkName(kName), std::chrono::hours(25));
  RemoveMarkedLeftovers(Folder());
  EXPECT_THAT(Names(), UnorderedElementsAre(kName, MarkName(kName)));
}

TEST(MarkName, IsDistinguishedFromOtherNames) {
  for (int i = 0; i < 100; ++i) {
    const std::string name = TemporaryName();
    EXPECT_EQ(MarkedName(MarkName(name)), name);
    EXPECT_EQ(MarkedName(name), std::nullopt);
  }
  for (const char* const other :
       {"", ".mark", "song.mark", ".quillon-.mark", ".quillon-0123456789a.mark", ".quillon-0123456789abc.mark",
        ".quillon-0123456789aW.mark", "quillon-0123456789ab.mark", ".quillon-0123456789ab.MARK",
        ".quillon-0123456789ab.mark "}) {
    EXPECT_EQ(MarkedName(other), std::nullopt) << other;
  }
}

}  // namespace
}  // namespace quillon::test
