#pragma once

#include <cstdint>
#include <string>

#include "player/PlayerPorts.h"

namespace quillon::test {

/// Records the state of the player's controls.
struct PanelControls final : PlayerPanel {
  void SetButton(PlayButton to) override { button = to; }
  void SetTimer(int to) override { interval = to; }
  void SetLength(std::int32_t to) override { length = to; }
  void SetPosition(std::int32_t to) override {
    position = to;
    ++positionsSet;
  }
  void SetTime(const std::string& to) override {
    time = to;
    ++timesSet;
  }

  PlayButton button = PlayButton::kPlay;
  int interval = 0;
  int positionsSet = 0;
  int timesSet = 0;
  std::int32_t length = 0;
  std::int32_t position = 0;
  std::string time = kIdleTime;
};

/// Records the state of the movie window.
struct MovieControls final : MovieWindow {
  bool Show() override {
    ++shown;
    open = canShow;
    return canShow;
  }
  void Close() override { open = false; }
  void SetButton(PlayButton to) override { button = to; }
  void SetPosition(std::int32_t to) override {
    position = to;
    ++positionsSet;
  }
  void SetTime(const std::string& to) override {
    time = to;
    ++timesSet;
  }

  bool canShow = true;
  bool open = false;
  PlayButton button = PlayButton::kPlay;
  int shown = 0;
  int positionsSet = 0;
  int timesSet = 0;
  std::int32_t position = 0;
  std::string time;
};

}  // namespace quillon::test
