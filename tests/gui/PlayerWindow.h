#pragma once

#include <string>

#include "gui/MainWindow.h"

namespace quillon::test {

/// True on a system whose device does not play without a sound device or a sequencer; its tests are skipped then. On
/// other systems it plays in silence, and tests fail when it does not.
[[nodiscard]] bool DeviceMayStandStill();

/// True when the playing position of this file advances on the system's own device.
[[nodiscard]] bool DevicePlays(const std::string& path);

/// The main window with files that play, on the system's own device.
class PlayerOfMainWindow : public MainWindowTest {
 protected:
  void SetUp() override;

  /// Writes a WAVE file of silence.
  void WriteWave(const std::string& name, int milliseconds) const;

  void DoubleClickRow(int index) const;
  /// Waits for the text of the panel that the player shares.
  [[nodiscard]] bool Shows(const std::string& status) const;
  /// What lblTime shows.
  [[nodiscard]] std::string Time() const;
  /// Value and maximum of sldPosition, in milliseconds.
  [[nodiscard]] int Position() const;
  [[nodiscard]] int Length() const;
  [[nodiscard]] bool PositionPasses(int milliseconds) const;
  /// A point of the slider's groove, at this share of its length.
  [[nodiscard]] wxPoint SliderPoint(double share) const;
  /// Lets real time pass while messages are processed.
  static void Wait(int milliseconds);
};

}  // namespace quillon::test
