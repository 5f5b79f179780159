#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "base/Result.h"
#include "platform/multimedia/linux/CommandString.h"
#include "platform/multimedia/linux/MediumSource.h"
#include "platform/multimedia/linux/PictureWindow.h"
#include "platform/multimedia/linux/Pipeline.h"

namespace quillon {

/// One open file. Commands answer 0 or a number of command_error; times are milliseconds. Update must be called before
/// each, so that what has happened meanwhile is known.
class Medium {
 public:
  enum class Mode { kStopped, kPlaying, kPaused };

  /// Opens regular files only, and only those whose length is known; neither sound device nor window is touched.
  static Result<std::unique_ptr<Medium>, int> Open(const std::string& path);

  void Update();

  /// From where the medium stands; at the end this plays nothing.
  int Play();
  int Pause();
  int Resume();
  int Stop();
  /// The medium is stopped there.
  int Seek(std::int32_t milliseconds);
  /// 0 takes the window away.
  int SetWindow(std::uint64_t owner);
  /// Where in the window the picture is drawn; the whole of it without a rectangle.
  int Put(const std::optional<PictureRectangle>& rectangle);

  [[nodiscard]] Mode CurrentMode() const { return mode_; }
  [[nodiscard]] int Length() const { return length_; }
  [[nodiscard]] int Position();
  /// Nothing for sound alone.
  [[nodiscard]] std::optional<PictureSize> Picture() const { return picture_; }
  [[nodiscard]] PictureRectangle Destination() const;

 private:
  explicit Medium(MediumSource source) : source_(std::move(source)), pipeline_(source_.path) {}

  int Load();
  bool Connect();
  void On(Pipeline::Event event);
  void ShowStill();

  // In this order: the pipeline outlives neither what it reads nor the window that it draws into.
  MediumSource source_;
  std::unique_ptr<PictureWindow> window_;
  Pipeline pipeline_;
  std::optional<PictureRectangle> destination_;
  std::optional<PictureSize> picture_;
  Mode mode_ = Mode::kStopped;
  bool hasSound_ = false;
  bool connected_ = false;    // the pipeline stands ready with its real sinks
  bool nothingLeft_ = false;  // stopped so near the end that nothing can be played
  bool soundLost_ = false;
  bool pictureLost_ = false;
  int start_ = 0;  // the pipeline's position at the file's beginning
  int length_ = 0;
  int position_ = 0;  // where it stands; while playing, where it has been seen last
};

}  // namespace quillon
