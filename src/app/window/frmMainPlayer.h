#pragma once

#include <wx/timer.h>
#include <wx/weakref.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "app/window/frmMainLayout.h"
#include "base/Ports.h"
#include "player/MusicPlayer.h"
#include "player/PlayerPorts.h"
#include "player/window/frmMoviePlayer.h"

namespace quillon {

/// The player panel's port for fraMusicPlayer, with its timer timMCIChecker.
class FraMusicPlayer final : public PlayerPanel {
 public:
  FraMusicPlayer(const frmMainControls& controls, std::function<void()> tick);
  FraMusicPlayer(const FraMusicPlayer&) = delete;
  FraMusicPlayer& operator=(const FraMusicPlayer&) = delete;
  ~FraMusicPlayer() override = default;

  /// Draws the pictures again in the theme's current text colour.
  void RefreshPictures() { SetButtonPictures(controls_, button_); }

  void SetButton(PlayButton button) override;
  void SetTimer(int interval) override;
  void SetLength(std::int32_t length) override { controls_.sldPosition->SetLength(length); }
  void SetPosition(std::int32_t position) override { controls_.sldPosition->SetPosition(position); }
  void SetTime(const std::string& text) override;

 private:
  void Tick();

  const frmMainControls& controls_;
  std::function<void()> tick_;
  wxTimer timMCIChecker_;
  bool failed_ = false;  // whether the last tick threw
  PlayButton button_ = PlayButton::kPlay;
};

/// The movie window above the main window, while one is open.
class FloatingMovie final : public MovieWindow {
 public:
  using MakeWindow = std::function<frmMoviePlayer*()>;

  explicit FloatingMovie(MakeWindow make) : make_(std::move(make)) {}

  [[nodiscard]] bool Show() override;
  void Close() override;
  void SetButton(PlayButton button) override;
  void SetPosition(std::int32_t position) override;
  void SetTime(const std::string& text) override;

 private:
  MakeWindow make_;
  wxWeakRef<frmMoviePlayer> window_;
};

}  // namespace quillon
