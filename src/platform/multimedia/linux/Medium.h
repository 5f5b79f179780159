#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "base/Result.h"
#include "platform/PictureCanvas.h"
#include "platform/multimedia/CommandString.h"
#include "platform/multimedia/MediaStatus.h"
#include "platform/multimedia/linux/Deadline.h"
#include "platform/multimedia/linux/MediumSource.h"
#include "platform/multimedia/linux/PictureWindow.h"
#include "platform/multimedia/linux/Pipeline.h"

namespace quillon {

/// One open file. Times are milliseconds. Update must be called before each command, to handle the events since the
/// last one.
class Medium {
 public:
  enum class Mode { kStopped, kPlaying, kPaused };

  /// Limits the time for opening any file; the rest of the promised five seconds is for closing it.
  static constexpr std::chrono::milliseconds kOpeningLimit{4500};

  /// Opens regular files only, and fails unless the first sound or picture is available within the limit. Uses neither
  /// sound device nor window.
  static Result<std::unique_ptr<Medium>, MediaError> Open(const std::string& path,
                                                          std::chrono::milliseconds limit = kOpeningLimit);

  void Update();

  /// Plays from the current position; does nothing at the end.
  MediaStatus Play();
  void Pause();
  MediaStatus Resume();
  void Stop();
  /// Goes to the position and stops.
  MediaStatus Seek(std::int32_t milliseconds);
  /// 0 removes the window.
  MediaStatus SetWindow(std::uint64_t owner);
  /// Passes the pictures to the canvas instead of drawing them into a window.
  MediaStatus SetCanvas(std::shared_ptr<PictureCanvas> canvas);
  /// Sets the part of the window in which the picture is drawn; without a rectangle the whole window.
  MediaStatus Put(const std::optional<PictureRectangle>& rectangle);

  [[nodiscard]] Mode CurrentMode() const { return mode_; }
  /// True when playback stopped because of an error. Playing again or seeking resets it.
  [[nodiscard]] bool Failed() const { return failed_; }
  /// 0 when it is unknown: the length of some streams is only known after they have been played to their end.
  [[nodiscard]] int Length() const { return length_.value_or(0); }
  [[nodiscard]] int Position();
  /// Empty for files with sound only.
  [[nodiscard]] std::optional<PictureSize> Picture() const { return picture_; }
  [[nodiscard]] PictureRectangle Destination() const;

 private:
  explicit Medium(MediumSource source) : source_(std::move(source)), pipeline_(source_.path) {}

  MediaStatus Load(const Deadline& deadline);
  MediaStatus ShowIn(std::unique_ptr<PictureWindow> window, std::shared_ptr<PictureCanvas> canvas);
  [[nodiscard]] GstElement* MakeSinkForPictures() const;
  bool Connect();
  void On(Pipeline::Event event);
  void ShowStill();
  void End();

  // The order matters: the pipeline must be destroyed before its source and before the window that it draws into.
  MediumSource source_;
  std::unique_ptr<PictureWindow> window_;
  std::shared_ptr<PictureCanvas> canvas_;
  Pipeline pipeline_;
  std::optional<PictureRectangle> destination_;
  std::optional<PictureSize> picture_;
  Mode mode_ = Mode::kStopped;
  bool hasSound_ = false;
  bool connected_ = false;    // the pipeline is prepared with its real sinks
  bool nothingLeft_ = false;  // stopped so close to the end that nothing can be played
  bool failed_ = false;
  bool soundLost_ = false;
  bool pictureLost_ = false;
  int start_ = 0;  // the pipeline's position at the file's beginning
  std::optional<int> length_;
  int position_ = 0;  // the current position; while playing, the last one read
};

}  // namespace quillon
