#pragma once

#include <windows.h>
// After windows.h, which it needs:
#include <gtest/gtest.h>
#include <mmsystem.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <thread>

#include "base/Text.h"
#include "platform/multimedia/CommandDevice.h"
#include "support/Replies.h"
#include "support/TempFolder.h"

namespace quillon::test {

/// A device with short forms of its commands.
class DeviceFixture : public ::testing::Test {
 protected:
  using Clock = std::chrono::steady_clock;
  static constexpr std::chrono::milliseconds kPatience{5000};

  CommandReply Send(const std::string& command, int replySize = 128) { return device->Send(command, replySize); }
  MediaStatus Error(const std::string& command) { return StatusOf(Send(command)); }
  std::string Text(const std::string& command) { return TextOf(Send(command)); }
  std::int64_t Number(const std::string& command) { return LeadingNumber(Text(command)); }

  /// Opens a file and sets its time format to milliseconds. Returns the error.
  MediaStatus Open(const std::string& path, const std::string& alias = "X") {
    const MediaStatus opened = Error("Open \"" + path + "\" alias " + alias);
    return opened.Ok() ? Error("set " + alias + " time format milliseconds") : opened;
  }

  std::string Mode(const std::string& alias = "X") { return Text("status " + alias + " mode"); }
  std::int64_t Position(const std::string& alias = "X") { return Number("status " + alias + " position"); }
  std::int64_t Length(const std::string& alias = "X") { return Number("status " + alias + " length"); }

  template <class Condition>
  bool Await(Condition condition) {
    for (const auto deadline = Clock::now() + kPatience; !condition();) {
      if (Clock::now() >= deadline) return false;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
  }
  bool AwaitPositionAbove(std::int64_t milliseconds) {
    return Await([&] { return Position() > milliseconds; });
  }
  bool AwaitStop() {
    return Await([&] { return Mode() == "stopped"; });
  }

  /// Without a sound device sounds can be opened, but their position does not advance.
  static bool HasSound() { return waveOutGetNumDevs() > 0; }
  static constexpr const char* kNoSound = "there is no sound device: see scripts/with-sound.sh";

  TempFolder folder;
  std::unique_ptr<CommandDevice> device = MakeCommandDevice();
};

}  // namespace quillon::test
