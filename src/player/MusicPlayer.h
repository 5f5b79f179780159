#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/Ports.h"
#include "filelist/FileList.h"
#include "filelist/WindowPorts.h"
#include "platform/multimedia/MediaDevice.h"
#include "player/PlayerPorts.h"
#include "settings/OptionValues.h"

namespace quillon {

/// The paths of the file chosen for playing and of the one that is open.
struct PlayerPaths {
  std::string playFilePath;     ///< chosen for playing; empty while none is
  std::string playingFilePath;  ///< open in the device; empty while nothing is
};

/// The player of the listed files. It handles the events of its controls and the ticks of its timer, sends commands to
/// the device, and sets what the controls show. Times are milliseconds.
///
/// | state              | PlayingFilePath | device    | timer |
/// |--------------------|-----------------|-----------|-------|
/// | idle               | empty           | closed    | 0     |
/// | playing            | the file        | "playing" | 50    |
/// | paused             | the file        | "paused"  | 0     |
/// | stopped at a point | the file        | "stopped" | 0     |
/// | failed, to skip    | the file        | closed    | 1500  |
class MusicPlayer final : public PlayerControl, public PlayTimes {
 public:
  struct Ports {
    MediaDevice& device;
    PlayerPanel& panel;
    MovieWindow& movie;
    PlayerStatus& status;
    MessageBoxes& boxes;
    WindowState& window;
    /// The shell's verb "Open"; see OpenWithShell.
    std::function<int(const std::string& target)> openWithShell;
  };

  MusicPlayer(const FileList& list, const OptionValues& options, Ports ports, PathStyle style = SystemPathStyle());
  MusicPlayer(const MusicPlayer&) = delete;
  MusicPlayer& operator=(const MusicPlayer&) = delete;
  ~MusicPlayer() override = default;

  // Events of the controls.
  void cmdPlay();
  void cmdStop();
  /// Does nothing while no file is open.
  void PauseOrGoOn();
  /// Plays the chosen file from its beginning.
  void mnuPlay();
  /// The same for this file, whichever row is the current one.
  void Play(const std::string& path);
  void timMCIChecker();

  // The position sliders of both windows. `value` is the moved slider's.
  void SliderPressed() { sliderSeeking_ = true; }
  /// The text beside the thumb.
  [[nodiscard]] static std::string SliderTip(std::int32_t value);
  void SliderReleased(std::int32_t value);
  [[nodiscard]] bool SliderSeeking() const { return sliderSeeking_; }

  // The movie window.
  [[nodiscard]] MediaDevice& Device() { return ports_.device; }
  [[nodiscard]] bool IsPlaying() { return ports_.device.Mode() == MediaMode::kPlaying; }
  /// Call it when the user has closed the movie window.
  void MovieClosed();
  [[nodiscard]] std::int32_t Length() const { return length_; }
  [[nodiscard]] std::int32_t Position() const { return position_; }
  [[nodiscard]] const std::string& Time() const { return time_; }

  /// Closes everything that the process opened, before it ends.
  void Shutdown();

  [[nodiscard]] const PlayerPaths& Paths() const { return paths_; }

  // PlayerControl
  void ReleaseFile(const std::string& path) override;
  void Stop() override;
  void Choose(const std::string& path) override { paths_.playFilePath = path; }
  void FileMoved(const std::string& from, const std::string& to) override;
  void FileRemoved(const std::string& path) override;

  // PlayTimes
  [[nodiscard]] std::int32_t LengthOfChosenFile() override { return ports_.device.LengthOf(paths_.playFilePath); }

 private:
  /// What the timer's ticks do.
  enum class Ticks {
    kNone,
    kFollowPlaying,
    kSkipFailed,  ///< a single tick, after the failure was shown for a while
  };

  [[nodiscard]] bool OpenedWithShell();
  void PlayOrPause();
  void StopBeforeStart();
  void Pause();
  void Resume();
  [[nodiscard]] bool StartChosen();
  bool ChangeState();
  void Recover();
  /// Returns false when the tick must go on.
  [[nodiscard]] bool FileEnded();
  void FileFailed();
  void LeaveFailed();
  void SkipFailed();
  [[nodiscard]] bool MaySkipFailed() const;
  void Repeat();
  void PlayNext();
  [[nodiscard]] int NextPlayableRow() const;
  void CloseMovie();
  bool MovieUnloaded();
  void StopAndClose();
  void ShowIdle();
  void Follow(std::int32_t position);
  void ShowTime(std::int32_t position);
  void SetButton(PlayButton button);
  void SetTicks(Ticks ticks);
  void SetPosition(std::int32_t position);
  void SetTime(std::string text);
  void ShowStatus(PlayerState state, const std::string& path);

  const FileList& list_;
  const OptionValues& options_;
  Ports ports_;
  PathStyle style_;
  PlayerPaths paths_;
  std::int32_t length_ = 0;
  std::int32_t position_ = 0;
  std::string time_ = kIdleTime;
  Ticks ticks_ = Ticks::kNone;
  bool sliderSeeking_ = false;
  bool movieShown_ = false;
  bool playRefused_ = false;
  bool hasPlayed_ = false;  // the open file has been seen playing
  int failedInARow_ = 0;
};

/// Two times as lblTime shows them, "mm:ss / mm:ss": whole seconds, halves rounded to even; minutes may exceed 99.
[[nodiscard]] std::string TimeText(std::int32_t elapsed, std::int32_t total);

}  // namespace quillon
