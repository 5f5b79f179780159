#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "multimedia/linux/GstSamples.h"
#include "multimedia/linux/Player.h"
#include "support/MediaBuilders.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

using std::chrono::milliseconds;

/// The allowed deviation of a position, including delays on a busy machine.
constexpr int kTolerance = 120;

struct Sample {
  std::string name;
  std::string path;
  int length = 0;
  int lengthTolerance = 0;
  std::string picture;  // the answer to "where X source"
  int rest = 300;       // where playing starts, before the end: a film cannot start in its last group of pictures
};

/// One file of each type, made once.
class CommandDeviceTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = std::make_unique<TempFolder>();
    const std::string picture = "0 0 320 240";
    Add({"WAVE", folder_->Write("a b.wav", WaveFile(2000)), 2000, 0, ""});
    Add({"MP3", folder_->Write("歌.mp3", Mp3Audio(80)), 2090, 0, ""});
    Add({"MIDI", folder_->Write("a.mid", SimpleMidiFile("", "")), 2000, 0, ""});
    Add({"MPEG", folder_->At("a.mpg"), 2000, 50, picture, 1000});
    MakeMpeg(Samples().back().path, 2000);
    const std::vector<std::pair<std::string, AviCodec>> codecs = {{"AVI of MPEG-4", AviCodec::kMpeg4},
                                                                  {"AVI of Motion JPEG", AviCodec::kMotionJpeg},
                                                                  {"AVI, uncompressed", AviCodec::kUncompressed}};
    for (const auto& [name, codec] : codecs) {
      Add({name, folder_->At(name + ".avi"), 2000, 1, picture});
      MakeAvi(Samples().back().path, 2000, codec);
    }
  }
  static void TearDownTestSuite() {
    Samples().clear();
    folder_.reset();
  }

  static std::vector<Sample>& Samples() {
    static std::vector<Sample> samples;
    return samples;
  }
  static const std::string& Wave() { return Samples().front().path; }

  Player player_;
  TempFolder own_;

 private:
  static void Add(const Sample& sample) { Samples().push_back(sample); }

  static std::unique_ptr<TempFolder> folder_;
};

std::unique_ptr<TempFolder> CommandDeviceTest::folder_;

TEST_F(CommandDeviceTest, EveryTypeOpensAndSaysItsLengthAndPicture) {
  for (const Sample& sample : Samples()) {
    SCOPED_TRACE(sample.name);
    ASSERT_EQ(player_.Open(sample.path), kDone);
    EXPECT_EQ(player_.Error("set X time format milliseconds"), kDone);
    EXPECT_NEAR(player_.Number("status X length"), sample.length, sample.lengthTolerance);
    const CommandReply where = player_.Send("where X source");
    EXPECT_EQ(TextOf(where), sample.picture);
    EXPECT_EQ(StatusOf(where), sample.picture.empty() ? MediaError::kNoPicture : kDone);
    EXPECT_EQ(player_.Text("status X mode"), "stopped");
    EXPECT_EQ(player_.Number("status X position"), 0);
    EXPECT_EQ(player_.Error("close X"), kDone);
  }
}

TEST_F(CommandDeviceTest, EveryTypePlaysInRealTimeFromASeekToItsEnd) {
  for (const Sample& sample : Samples()) {
    SCOPED_TRACE(sample.name);
    ASSERT_EQ(player_.Open(sample.path), kDone);
    ASSERT_EQ(player_.Error("Play X"), kDone);
    const Stopwatch first;
    EXPECT_EQ(player_.Text("status X mode"), "playing");
    Sleep(200);
    EXPECT_NEAR(player_.Number("status X position"), first.Elapsed(), kTolerance);
    const int place = player_.Number("status X length") - sample.rest;
    int least = std::numeric_limits<int>::max();  // other programs can only make it longer
    for (int attempt = 0; attempt < 3 && least > sample.rest + kTolerance; ++attempt) {
      EXPECT_EQ(player_.Error("seek X to " + std::to_string(place)), kDone);
      EXPECT_EQ(player_.Text("status X mode"), "stopped");
      EXPECT_EQ(player_.Number("status X position"), place);
      ASSERT_EQ(player_.Error("play X"), kDone);
      const Stopwatch rest;
      ASSERT_TRUE(player_.WaitForMode("stopped", milliseconds(10000)));
      least = std::min(least, rest.Elapsed());
    }
    EXPECT_NEAR(least, sample.rest, kTolerance);
    EXPECT_EQ(player_.Text("status X position"), player_.Text("status X length"));
    EXPECT_EQ(player_.Error("close X"), kDone);
  }
}

TEST_F(CommandDeviceTest, AFilmWithoutALengthPlaysToItsEnd) {
  MakeMpegPictures(own_.At("a.mpg"), 1000);
  ASSERT_EQ(player_.Open(own_.At("a.mpg")), kDone);
  EXPECT_EQ(player_.Number("status X length"), 0);
  EXPECT_EQ(player_.Text("where X source"), "0 0 320 240");
  ASSERT_EQ(player_.Error("play X"), kDone);
  const Stopwatch watch;
  Sleep(300);
  EXPECT_NEAR(player_.Number("status X position"), watch.Elapsed(), kTolerance);
  EXPECT_EQ(player_.Error("seek X to 1"), MediaError::kOutOfRange);
  ASSERT_TRUE(player_.WaitForMode("stopped", milliseconds(3000)));
  EXPECT_NEAR(watch.Elapsed(), 1000, kTolerance);
  // The length is known after playing to the end.
  EXPECT_NEAR(player_.Number("status X length"), 1000, kTolerance);
  EXPECT_EQ(player_.Text("status X position"), player_.Text("status X length"));
  ASSERT_EQ(player_.Error("play X"), kDone);
  EXPECT_EQ(player_.Text("status X mode"), "stopped");
  ASSERT_EQ(player_.Error("play X from 0"), kDone);
  EXPECT_EQ(player_.Text("status X mode"), "playing");
  EXPECT_LT(player_.Number("status X position"), 300);
  EXPECT_TRUE(player_.WaitForMode("stopped", milliseconds(3000)));
}

TEST_F(CommandDeviceTest, AFilmThatIsEnteredBehindItsLastWholePictureEnds) {
  ASSERT_EQ(player_.Open(Samples()[3].path), kDone);
  for (const int before : {300, 100, 20, 1}) {
    ASSERT_EQ(player_.Error("play X from " + std::to_string(player_.Number("status X length") - before)), kDone);
    EXPECT_TRUE(player_.WaitForMode("stopped", milliseconds(1500))) << before;
    EXPECT_EQ(player_.Text("status X position"), player_.Text("status X length")) << before;
  }
  ASSERT_EQ(player_.Error("play X from 500"), kDone);
  Sleep(200);
  EXPECT_EQ(player_.Text("status X mode"), "playing");
}

TEST_F(CommandDeviceTest, PauseHoldsThePlaceAndBothPlayAndResumeGoOn) {
  ASSERT_EQ(player_.Open(Wave()), kDone);
  ASSERT_EQ(player_.Error("play X"), kDone);
  for (const char* const goOn : {"play X", "resume X"}) {
    Sleep(100);
    ASSERT_EQ(player_.Error("pause X"), kDone);
    EXPECT_EQ(player_.Text("status X mode"), "paused");
    const int place = player_.Number("status X position");
    EXPECT_GT(place, 0);
    Sleep(100);
    EXPECT_EQ(player_.Number("status X position"), place);
    ASSERT_EQ(player_.Error(goOn), kDone);
    EXPECT_EQ(player_.Text("status X mode"), "playing");
    Sleep(100);
    EXPECT_NEAR(player_.Number("status X position"), place + 100, kTolerance);
  }
}

TEST_F(CommandDeviceTest, StopKeepsThePlaceAndPlayGoesOnThere) {
  ASSERT_EQ(player_.Open(Wave()), kDone);
  ASSERT_EQ(player_.Error("play X from 500"), kDone);
  Sleep(100);
  ASSERT_EQ(player_.Error("stop X"), kDone);
  EXPECT_EQ(player_.Text("status X mode"), "stopped");
  const int place = player_.Number("status X position");
  EXPECT_NEAR(place, 600, kTolerance);
  ASSERT_EQ(player_.Error("play X"), kDone);
  EXPECT_GE(player_.Number("status X position"), place);
}

TEST_F(CommandDeviceTest, WhatIsStoppedStaysSoUnderPauseResumeAndStop) {
  ASSERT_EQ(player_.Open(Wave()), kDone);
  for (const char* const command : {"pause X", "resume X", "stop X"}) {
    EXPECT_EQ(player_.Error(command), kDone) << command;
    EXPECT_EQ(player_.Text("status X mode"), "stopped") << command;
  }
}

TEST_F(CommandDeviceTest, SeekingInAPauseStopsThere) {
  ASSERT_EQ(player_.Open(Wave()), kDone);
  ASSERT_EQ(player_.Error("play X"), kDone);
  ASSERT_EQ(player_.Error("pause X"), kDone);
  ASSERT_EQ(player_.Error("seek X to 1200"), kDone);
  EXPECT_EQ(player_.Text("status X mode"), "stopped");
  EXPECT_EQ(player_.Number("status X position"), 1200);
}

TEST_F(CommandDeviceTest, AtTheEndPlayPlaysNothingUntilItIsSoughtBack) {
  ASSERT_EQ(player_.Open(Wave()), kDone);
  ASSERT_EQ(player_.Error("seek X to end"), kDone);
  EXPECT_EQ(player_.Number("status X position"), 2000);
  EXPECT_EQ(player_.Error("play X"), kDone);
  EXPECT_EQ(player_.Text("status X mode"), "stopped");
  ASSERT_EQ(player_.Error("Seek X to Start"), kDone);
  EXPECT_EQ(player_.Error("play X"), kDone);
  EXPECT_EQ(player_.Text("status X mode"), "playing");
  EXPECT_LT(player_.Number("status X position"), 1000);
}

TEST_F(CommandDeviceTest, PlacesOutsideTheFileAreRefused) {
  ASSERT_EQ(player_.Open(Wave()), kDone);
  ASSERT_EQ(player_.Error("seek X to 700"), kDone);
  for (const char* const command : {"seek X to -1", "seek X to 2001", "play X from 2001"}) {
    EXPECT_EQ(player_.Error(command), MediaError::kOutOfRange) << command;
  }
  EXPECT_EQ(player_.Number("status X position"), 700);
}

TEST_F(CommandDeviceTest, WithoutAnOpenFileEveryCommandFailsWithoutAnAnswer) {
  const CommandReply nothing = MediaError::kNotOpen;
  for (const char* const command : {"status X mode", "status X length", "status X position", "play X", "pause X",
                                    "stop X", "seek X to start", "close X", "where X source", "window X handle 5",
                                    "set X time format milliseconds", "put X destination at 0 0 1 1"}) {
    EXPECT_EQ(player_.Send(command), nothing) << command;
  }
  EXPECT_EQ(player_.Error("close all"), kDone);
}

TEST_F(CommandDeviceTest, AnAliasInUseKeepsWhatItHas) {
  ASSERT_EQ(player_.Open(Wave()), kDone);
  ASSERT_EQ(player_.Error("seek X to 300"), kDone);
  EXPECT_EQ(player_.Error("open \"" + Samples()[1].path + "\" alias x"), MediaError::kAliasInUse);
  EXPECT_EQ(player_.Number("status X length"), 2000);
  EXPECT_EQ(player_.Number("status X position"), 300);
}

TEST_F(CommandDeviceTest, MeasuringALengthDoesNotDisturbWhatPlays) {
  ASSERT_EQ(player_.Open(Wave()), kDone);
  ASSERT_EQ(player_.Error("play X"), kDone);
  const Stopwatch watch;
  ASSERT_EQ(player_.Error("Open \"" + Wave() + "\" alias MCILENGTH"), kDone);
  EXPECT_EQ(player_.Number("status MCILENGTH length"), 2000);
  EXPECT_EQ(player_.Error("Close MCILENGTH"), kDone);
  EXPECT_EQ(player_.Text("status X mode"), "playing");
  EXPECT_NEAR(player_.Number("status X position"), watch.Elapsed(), kTolerance);
}

TEST_F(CommandDeviceTest, AFileBeyondTheLimitIsRejectedUntilAnotherIsClosed) {
  const auto open = [&](std::size_t i) { return player_.Error("open \"" + Wave() + "\" alias N" + std::to_string(i)); };
  for (std::size_t i = 0; i < CommandDevice::kMostOpen; ++i) ASSERT_EQ(open(i), kDone) << i;
  EXPECT_EQ(open(CommandDevice::kMostOpen), MediaError::kTooManyOpen);
  EXPECT_EQ(player_.Error("close N0"), kDone);
  EXPECT_EQ(open(CommandDevice::kMostOpen), kDone);
  EXPECT_EQ(player_.Error("close all"), kDone);
  EXPECT_EQ(open(0), kDone);
}

TEST_F(CommandDeviceTest, CloseAllClosesEverything) {
  ASSERT_EQ(player_.Open(Wave()), kDone);
  ASSERT_EQ(player_.Error("open \"" + Wave() + "\" alias Y"), kDone);
  ASSERT_EQ(player_.Error("play X"), kDone);
  EXPECT_EQ(player_.Error("CLOSE ALL"), kDone);
  EXPECT_EQ(player_.Error("status X mode"), MediaError::kNotOpen);
  EXPECT_EQ(player_.Error("status Y mode"), MediaError::kNotOpen);
}

TEST_F(CommandDeviceTest, ADeviceThatGoesWhilePlayingClosesWhatItHas) {
  ASSERT_EQ(player_.Open(Wave()), kDone);
  EXPECT_EQ(player_.Error("play X"), kDone);
  player_ = Player();
  EXPECT_EQ(player_.Error("status X mode"), MediaError::kNotOpen);
}

TEST_F(CommandDeviceTest, NamesMayContainAnyBytes) {
  for (const char* const name : {"a  b.wav", "日本語 １.wav", "%41#?.wav", "\xff\xfe\x81.wav", "'&$.wav",
                                 "a\" alias B.wav", "\".wav", "a\"b\".wav", "a.wav\""}) {
    SCOPED_TRACE(name);
    ASSERT_EQ(player_.Open(own_.Write(name, WaveFile(100))), kDone);
    EXPECT_EQ(player_.Number("status X length"), 100);
    EXPECT_EQ(player_.Error("close X"), kDone);
  }
}

TEST_F(CommandDeviceTest, AWaveFileWithAnIncompleteLastChunkPlays) {
  for (const std::size_t rest : {1U, 7U, 100U}) {
    SCOPED_TRACE(rest);
    ASSERT_EQ(player_.Open(own_.Write("a.wav", WaveFile(300) + std::string(rest, '\0'))), kDone);
    EXPECT_EQ(player_.Number("status X length"), 300);
    EXPECT_EQ(player_.Error("play X"), kDone);
    EXPECT_TRUE(player_.WaitForMode("stopped", std::chrono::seconds(3)));
    EXPECT_EQ(player_.Error("close X"), kDone);
  }
}

TEST_F(CommandDeviceTest, UnplayableFilesAreRejectedSoon) {
  const std::string fifo = own_.At("fifo.mp3");
  ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
  const std::vector<std::pair<std::string, MediaError>> rows = {
      {own_.At("missing.mp3"), MediaError::kFileNotFound},
      {own_.Write("empty.mp3"), MediaError::kInvalidFile},
      {own_.Write("text.mp3", "This is no sound."), MediaError::kInvalidFile},
      {own_.Write("list.mp3", "#EXTM3U\n#EXT-X-VERSION:3\n#EXTINF:5,\nhttp://127.0.0.1:9/a.ts\n"),
       MediaError::kInvalidFile},
      {own_.Write("zeros.mpg", std::string(100000, '\0')), MediaError::kInvalidFile},
      {own_.Write("head.mpg", MpegFile()), MediaError::kInvalidFile},
      {own_.Write("head.avi", AviFile()), MediaError::kInvalidFile},
      {own_.Write("half.wav", WaveFile(1000).substr(0, 30)), MediaError::kInvalidFile},
      {own_.Write("silent.mid", MidiFile(0, 96, {MidiTrack("")})), MediaError::kInvalidFile},
      {own_.Write("timeless.mid", MidiFile(0, 0, {MidiTrack(MidiNote(60, 48))})), MediaError::kInvalidFile},
      {own_.Write("head.mid", "MThd"), MediaError::kInvalidFile},
      {own_.MakeFolder("folder.mp3"), MediaError::kInvalidFile},
      {fifo, MediaError::kInvalidFile},
      {"/dev/zero", MediaError::kInvalidFile},
  };
  for (const auto& [path, error] : rows) {
    const Stopwatch watch;
    EXPECT_EQ(player_.Open(path), error) << path;
    EXPECT_LT(watch.Elapsed(), 5000) << path;
    EXPECT_EQ(player_.Error("status X mode"), MediaError::kNotOpen) << path;
  }
}

TEST_F(CommandDeviceTest, AMidiFileOfIllegalMessagesPlays) {
  const std::string track = MidiTrack(Bytes({0, 0xF1, 0x10, 0, 0xF9}) + MidiNote(60, 48));
  ASSERT_EQ(player_.Open(own_.Write("a.mid", MidiFile(0, 96, {track}))), kDone);
  EXPECT_EQ(player_.Number("status X length"), 250);
  ASSERT_EQ(player_.Error("play X"), kDone);
  EXPECT_TRUE(player_.WaitForMode("stopped", milliseconds(2000)));
}

TEST_F(CommandDeviceTest, AFileTruncatedWhilePlayingStops) {
  const std::string path = own_.Write("a.wav", WaveFile(60000));
  ASSERT_EQ(player_.Open(path), kDone);
  ASSERT_EQ(player_.Error("play X"), kDone);
  own_.Write("a.wav", WaveFile(1000).substr(0, 200));
  ASSERT_EQ(player_.Error("play X from 59000"), kDone);
  EXPECT_TRUE(player_.WaitForMode("stopped", milliseconds(3000)));
}

TEST_F(CommandDeviceTest, AReplyIsCutToTheReplySize) {
  const std::unique_ptr<CommandDevice> device = MakeCommandDevice();
  ASSERT_EQ(StatusOf(device->Send("open \"" + Wave() + "\" alias X", 0)), kDone);
  EXPECT_EQ(TextOf(device->Send("status X mode", 16)), "stopped");
  EXPECT_EQ(TextOf(device->Send("status X mode", 5)), "stop");
  EXPECT_EQ(device->Send("status X mode", 0), CommandReply(""));
  EXPECT_EQ(TextOf(device->Send("status X ready", 16)), "true");
  EXPECT_EQ(TextOf(device->Send("status X time format", 16)), "milliseconds");
}

TEST_F(CommandDeviceTest, WithoutAPictureThereIsNothingToShow) {
  ASSERT_EQ(player_.Open(Wave()), kDone);
  for (const char* const command :
       {"where X source", "where X destination", "window X handle 5", "put X destination at 0 0 10 10"}) {
    EXPECT_EQ(player_.Send(command), CommandReply(MediaError::kNoPicture)) << command;
  }
}

}  // namespace
}  // namespace quillon::test
