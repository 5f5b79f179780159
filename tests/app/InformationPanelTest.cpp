#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "app/InformationRecorders.h"
#include "support/MediaBuilders.h"
#include "support/Rows.h"
#include "support/SongBuilders.h"
#include "support/TempFolder.h"

namespace quillon {
namespace {

using test::TempFolder;
using Texts = std::vector<std::string>;

struct InformationPanelTest : ::testing::Test {
  TempFolder folder;
  FileList list;
  OptionValues options;
  test::InformationBoxRecorder boxes;
  test::PlayTimeRecorder playTimes;
  InformationPanel panel{list, options, boxes, playTimes};

  int Add(const std::string& name, const std::string& bytes, const std::string& type, const std::string& title = "題") {
    FileItem row = test::RowFor(folder.Write(name, bytes));
    row.type = type;
    row.title = title;
    list.Add(row);
    return list.Count();
  }
};

TEST_F(InformationPanelTest, ClearedItShowsTheTextsOfNoFile) {
  boxes.title = boxes.fileName = boxes.summary = boxes.detail = "old";
  panel.Clear();
  EXPECT_EQ(boxes.title, "");
  EXPECT_EQ(boxes.fileName, "");
  EXPECT_EQ(boxes.summary, "サイズ： --- バイト / 種類： ---");
  EXPECT_EQ(boxes.detail, "著作権： --- / 分解能： 0 / トラック数： 0");
}

TEST_F(InformationPanelTest, ShowsTitlePathAndBothLinesOfARow) {
  const std::string midi = test::SimpleMidiFile("song", "me");
  const int index = Add("a.mid", midi, "MIDI", "song");
  panel.ShowRow(index);
  EXPECT_EQ(boxes.title, "song");
  EXPECT_EQ(boxes.fileName, folder.At("a.mid"));
  EXPECT_EQ(boxes.summary, "サイズ： " + std::to_string(midi.size()) + " バイト / 種類： MIDI (SMF Format 0)");
  EXPECT_TRUE(boxes.detail.starts_with("著作権： me / 分解能： ")) << boxes.detail;
}

TEST_F(InformationPanelTest, ShowsTheTagsThatTheOptionsAskFor) {
  const int index = Add("a.flac", test::FlacFile({{"TITLE", "題"}, {"ARTIST", "人"}}), "flac");
  panel.ShowRow(index);
  EXPECT_EQ(boxes.detail, "---");
  options.extra.readMoreTags = true;
  panel.ShowRow(index);
  EXPECT_EQ(boxes.detail,
            "アーティスト： 人 / アルバム： --- / トラック： --- / 年： --- / ジャンル： --- / 演奏時間： 0:03");
}

TEST_F(InformationPanelTest, ReadsTheFileEachTime) {
  const int index = Add("a.txt", "12", "txt");
  panel.ShowRow(index);
  EXPECT_TRUE(boxes.summary.starts_with("サイズ： 2 バイト")) << boxes.summary;
  folder.Write("a.txt", std::string(1234, 'x'));
  panel.ShowRow(index);
  EXPECT_TRUE(boxes.summary.starts_with("サイズ： 1,234 バイト")) << boxes.summary;
  EXPECT_EQ(boxes.detail, "---");
}

TEST_F(InformationPanelTest, AnEmptyFileShowsTheSizeZero) {
  panel.ShowRow(Add("empty.txt", "", "txt"));
  EXPECT_TRUE(boxes.summary.starts_with("サイズ： 0 バイト / 種類： txt")) << boxes.summary;
}

TEST_F(InformationPanelTest, AFileThatIsGoneKeepsNameLengthAndType) {
  FileItem row = test::RowFor(folder.At("gone.mid"));
  row.type = "MIDI";
  row.size = 1234;
  list.Add(row);
  panel.ShowRow(1);
  EXPECT_EQ(boxes.title, "---");
  EXPECT_EQ(boxes.fileName, folder.At("gone.mid"));
  EXPECT_EQ(boxes.summary, "サイズ： 1,234 バイト / 種類： MIDI");
  EXPECT_EQ(boxes.detail, "---");
}

// Play times.

TEST_F(InformationPanelTest, AsksForNoPlayTimeUnlessTheOptionIsOn) {
  playTimes.length = 65000;
  const int index = Add("a.mid", test::SimpleMidiFile("", ""), "MIDI");
  panel.ShowRow(index);
  EXPECT_EQ(playTimes.asked, 0);
  EXPECT_EQ(boxes.summary.find("演奏時間"), std::string::npos);
  options.system.readPlayTimes = true;
  panel.ShowRow(index);
  EXPECT_EQ(playTimes.asked, 1);
  EXPECT_TRUE(boxes.summary.ends_with(" / 演奏時間： 1:05")) << boxes.summary;
}

TEST_F(InformationPanelTest, AsksForThePlayTimeOfEachPlayableTypeAndOfNoOther) {
  options.system.readPlayTimes = true;
  playTimes.length = 65000;
  for (const std::string& type : Texts({"MP3", "MIDI", "AVI", "MPEG", "WAVE"})) {
    panel.ShowRow(Add(type + ".bin", "", type));
    EXPECT_TRUE(boxes.summary.ends_with(" / 演奏時間： 1:05")) << boxes.summary;
  }
  playTimes.asked = 0;
  for (const std::string& type : Texts({"HTML", "txt", "mp3", ""})) {
    panel.ShowRow(Add("other-" + type, "", type));
    EXPECT_EQ(boxes.summary.find("演奏時間"), std::string::npos) << type;
  }
  EXPECT_EQ(playTimes.asked, 0);
}

TEST_F(InformationPanelTest, RoundsHalvesOfASecondToEven) {
  options.system.readPlayTimes = true;
  const int index = Add("a.wav", "", "WAVE");
  const std::map<int, std::string> expected = {
      {0, "0:00"}, {2500, "0:02"}, {3500, "0:04"}, {59500, "1:00"}, {185000, "3:05"}};
  for (const auto& [milliseconds, text] : expected) {
    playTimes.length = milliseconds;
    panel.ShowRow(index);
    EXPECT_TRUE(boxes.summary.ends_with(" / 演奏時間： " + text)) << boxes.summary;
  }
}

TEST_F(InformationPanelTest, AFileThatCannotBePlayedHasTheLengthZero) {
  options.system.readPlayTimes = true;
  panel.ShowRow(Add("a.wav", "", "WAVE"));
  EXPECT_EQ(playTimes.asked, 1);
  EXPECT_TRUE(boxes.summary.ends_with(" / 演奏時間： 0:00")) << boxes.summary;
}

// The file name box.

struct ShortenedName : ::testing::Test {
  FileList list{PathStyle::kWindows};
  OptionValues options;
  test::InformationBoxRecorder boxes;
  test::PlayTimeRecorder playTimes;
  InformationPanel panel{list, options, boxes, playTimes, PathStyle::kWindows};
};

TEST_F(ShortenedName, ThePathIsShortenedToTheRoomOfTheBox) {
  boxes.room = 20;
  panel.ShowFileName("C:\\first\\second\\third\\a.mid");
  EXPECT_EQ(boxes.fileName, "C:\\...\\third\\a.mid");
  boxes.room = 100;
  panel.ShowFileName("C:\\first\\second\\third\\a.mid");
  EXPECT_EQ(boxes.fileName, "C:\\first\\second\\third\\a.mid");
}

TEST_F(ShortenedName, IsRefilledForTheSelectedRowOnly) {
  list.Add(test::RowFor("C:\\first\\second\\third\\a.mid", PathStyle::kWindows));
  list.Add(test::RowFor("C:\\first\\second\\third\\b.mid", PathStyle::kWindows));
  panel.RefillFileName();
  EXPECT_EQ(boxes.fileName, "");
  list.SelectOnly(2);
  boxes.room = 20;
  panel.RefillFileName();
  EXPECT_EQ(boxes.fileName, "C:\\...\\third\\b.mid");
  EXPECT_EQ(boxes.summary, "") << "nothing else changes";
}

}  // namespace
}  // namespace quillon
