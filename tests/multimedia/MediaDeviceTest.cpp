#include <gtest/gtest.h>

#include "platform/multimedia/MediaDevice.h"
#include "support/MediaBuilders.h"
#include "support/Replies.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

/// The behaviour of every system's device before anything is played.
class MediaDeviceTest : public testing::Test {
 protected:
  std::string Wave(std::uint32_t milliseconds, const std::string& name = "a b.wav") {
    return folder_.Write(name, WaveFile(milliseconds));
  }

  TempFolder folder_;
  std::unique_ptr<MediaDevice> device_ = MakeMediaDevice();
};

TEST_F(MediaDeviceTest, WhatIsOpenedIsStoppedAtItsStart) {
  ASSERT_EQ(device_->Open(Wave(2000)), kDone);
  EXPECT_EQ(device_->Mode(), MediaMode::kStopped);
  EXPECT_EQ(device_->Position(), 0);
  EXPECT_EQ(device_->Length(), 2000);
}

TEST_F(MediaDeviceTest, SeekingStopsAtThePlaceAndRefusesWhatIsOutsideTheFile) {
  ASSERT_EQ(device_->Open(Wave(2000)), kDone);
  EXPECT_EQ(device_->Seek(1200), kDone);
  EXPECT_EQ(device_->Mode(), MediaMode::kStopped);
  EXPECT_EQ(device_->Position(), 1200);
  EXPECT_EQ(device_->Seek(5000), MediaError::kOutOfRange);
  EXPECT_EQ(device_->Position(), 1200);
  EXPECT_EQ(device_->SeekToStart(), kDone);
  EXPECT_EQ(device_->Position(), 0);
}

TEST_F(MediaDeviceTest, ASecondFileIsRefusedWhileOneIsOpen) {
  ASSERT_EQ(device_->Open(Wave(2000)), kDone);
  const std::string other = Wave(700, "other.wav");
  EXPECT_EQ(device_->Open(other), MediaError::kAliasInUse);
  EXPECT_EQ(device_->Length(), 2000);
  EXPECT_EQ(device_->Close(), kDone);
  EXPECT_EQ(device_->Open(other), kDone);
  EXPECT_EQ(device_->Length(), 700);
}

TEST_F(MediaDeviceTest, TheLengthOfAnotherFileLeavesTheOpenOneAsItIs) {
  ASSERT_EQ(device_->Open(Wave(2000)), kDone);
  ASSERT_EQ(device_->Seek(500), kDone);
  EXPECT_EQ(device_->LengthOf(Wave(700, "other.wav")), 700);
  EXPECT_EQ(device_->LengthOf(folder_.At("missing.wav")), 0);
  EXPECT_EQ(device_->Position(), 500);
  EXPECT_EQ(device_->Length(), 2000);
}

TEST_F(MediaDeviceTest, SoundAloneHasNoPicture) {
  ASSERT_EQ(device_->Open(Wave(500)), kDone);
  EXPECT_EQ(device_->Picture(), std::nullopt);
  EXPECT_FALSE(device_->PutPicture({10, 10}).Ok());
}

TEST_F(MediaDeviceTest, WithNothingOpenEveryCommandFails) {
  EXPECT_EQ(device_->Open(folder_.At("missing.wav")), MediaError::kFileNotFound);
  for (const bool before : {true, false}) {
    EXPECT_EQ(device_->Mode(), MediaMode::kNone);
    EXPECT_EQ(device_->Position(), 0);
    EXPECT_EQ(device_->Length(), 0);
    EXPECT_EQ(device_->Picture(), std::nullopt);
    for (const MediaStatus& status : {device_->Play(), device_->Pause(), device_->Stop(), device_->Seek(5),
                                      device_->SeekToStart(), device_->PutPicture({1, 1}), device_->Close()}) {
      EXPECT_FALSE(status.Ok());
    }
    if (!before) continue;
    ASSERT_EQ(device_->Open(Wave(500)), kDone);
    EXPECT_EQ(device_->CloseAll(), kDone);
  }
}

}  // namespace
}  // namespace quillon::test
