#pragma once

#include <cstdint>
#include <string>

/// What the player asks of its windows. Times are milliseconds.
namespace quillon {

enum class PlayButton { kPlay, kPause };

inline constexpr const char* kIdleTime = "00:00 / 00:00";

/// The player's controls in the main window. They only display; the player keeps the state.
class PlayerPanel {
 public:
  virtual ~PlayerPanel() = default;
  /// The symbol on cmdPlay.
  virtual void SetButton(PlayButton button) = 0;
  /// Sets the interval of timMCIChecker's ticks; 0 stops it.
  virtual void SetTimer(int interval) = 0;
  /// The maximum and the value of sldPosition.
  virtual void SetLength(std::int32_t length) = 0;
  virtual void SetPosition(std::int32_t position) = 0;
  /// lblTime.
  virtual void SetTime(const std::string& text) = 0;
};

/// The window that shows a playing file's picture, frmMoviePlayer. There is at most one.
class MovieWindow {
 public:
  virtual ~MovieWindow() = default;
  /// Opens the window for the file that is open; false when it has no picture that can be shown.
  [[nodiscard]] virtual bool Show() = 0;
  /// Closes the window without notifying the player.
  virtual void Close() = 0;
  /// Its button, slider and label show the same as the main window's.
  virtual void SetButton(PlayButton button) = 0;
  virtual void SetPosition(std::int32_t position) = 0;
  virtual void SetTime(const std::string& text) = 0;
};

}  // namespace quillon
