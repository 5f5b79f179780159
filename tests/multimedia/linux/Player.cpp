#include "multimedia/linux/Player.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cstdlib>
#include <thread>

namespace quillon::test {

void Sleep(int milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

void SilenceSound() {
  ::setenv("PULSE_SERVER", "unix:/nonexistent", 1);
  ::setenv("ALSA_CONFIG_PATH", "/dev/null", 1);
}

Player::Player() : device_(MakeCommandDevice()) {
  SilenceSound();
}

CommandReply Player::Send(const std::string& command) {
  constexpr int kRoom = 1024;
  return device_->Send(command, kRoom);
}

int Player::Number(const std::string& command) {
  const std::string text = Text(command);
  int number = -1;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  EXPECT_TRUE(error == std::errc() && end == text.data() + text.size()) << command << " answers " << text;
  return number;
}

bool Player::WaitForMode(const std::string& mode, std::chrono::milliseconds limit) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (Text("status X mode") != mode) {
    if (std::chrono::steady_clock::now() > end) return false;
    Sleep(5);
  }
  return true;
}

}  // namespace quillon::test
