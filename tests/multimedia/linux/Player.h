#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "platform/multimedia/CommandDevice.h"
#include "support/Replies.h"

namespace quillon::test {

/// From now on no device finds a sound server or card.
void SilenceSound();

/// A command device that never finds a sound server or card, so that tests are silent.
class Player {
 public:
  Player();

  CommandReply Send(const std::string& command);
  MediaStatus Error(const std::string& command) { return StatusOf(Send(command)); }
  std::string Text(const std::string& command) { return TextOf(Send(command)); }
  int Number(const std::string& command);
  /// Opens the file under the alias "X".
  MediaStatus Open(const std::string& path) { return Error("Open \"" + path + "\" alias X"); }

  /// Waits until X is in the mode; false when the time is up.
  bool WaitForMode(const std::string& mode, std::chrono::milliseconds limit);

 private:
  std::unique_ptr<CommandDevice> device_;
};

void Sleep(int milliseconds);

/// Milliseconds since the object was made.
class Stopwatch {
 public:
  [[nodiscard]] int Elapsed() const {
    const auto elapsed = std::chrono::steady_clock::now() - start_;
    return static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(elapsed).count());
  }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace quillon::test
