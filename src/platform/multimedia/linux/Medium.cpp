#include "platform/multimedia/linux/Medium.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/multimedia/linux/Sinks.h"

namespace quillon {
namespace {

/// In milliseconds: a seek to less than this before the end may find no picture.
constexpr int kLastPicture = 100;

}  // namespace

Result<std::unique_ptr<Medium>, MediaError> Medium::Open(const std::string& path, std::chrono::milliseconds limit) {
  if (!StartGStreamer()) return MediaError::kInternal;
  const Deadline deadline(limit);
  // Finding the length gets half of the time, so that the pipeline has time to estimate it otherwise.
  Result<MediumSource, MediaError> source = FindMediumSource(path, Deadline(limit / 2));
  if (!source) return source.Failure();
  std::unique_ptr<Medium> medium(new Medium(std::move(*source)));
  if (const MediaStatus loaded = medium->Load(deadline); !loaded.Ok()) return loaded.Failure();
  return medium;
}

MediaStatus Medium::Load(const Deadline& deadline) {
  if (pipeline_.Prepare(deadline.Left()) != Pipeline::Event::kNone) return MediaError::kInvalidFile;
  length_ = source_.milliseconds ? source_.milliseconds : pipeline_.Length();
  start_ = pipeline_.Position().value_or(0);
  picture_ = pipeline_.Picture();
  hasSound_ = pipeline_.HasSound();
  return length_ != 0 ? MediaStatus() : MediaError::kInvalidFile;
}

void Medium::Update() {
  for (auto event = pipeline_.NextEvent(); event != Pipeline::Event::kNone; event = pipeline_.NextEvent()) On(event);
}

void Medium::On(Pipeline::Event event) {
  switch (event) {
    case Pipeline::Event::kNone: return;
    case Pipeline::Event::kEnded:
      if (mode_ != Mode::kPlaying) return;
      pipeline_.Hold();
      End();
      return;
    case Pipeline::Event::kNoPictureLeft:
      connected_ = false;
      if (mode_ == Mode::kStopped) {
        nothingLeft_ = true;
        return;
      }
      End();
      return;
    case Pipeline::Event::kSoundLost: soundLost_ = true; break;
    case Pipeline::Event::kPictureLost: pictureLost_ = true; break;
    case Pipeline::Event::kFailed:
      position_ = Position();
      mode_ = Mode::kStopped;
      connected_ = false;
      failed_ = true;
      return;
  }
  position_ = Position();
  if (Connect() && mode_ == Mode::kPlaying) pipeline_.Run();
}

/// Stops at the end. If the length is still unknown, it is the current position.
void Medium::End() {
  if (!length_) length_ = Position();
  mode_ = Mode::kStopped;
  position_ = *length_;
}

GstElement* Medium::MakeSinkForPictures() const {
  return window_ ? MakePictureSink(window_->Handle()) : MakeCanvasSink(canvas_);
}

/// Restarts the pipeline with the devices that are available, paused at `position_`.
bool Medium::Connect() {
  const Deadline deadline(kOpeningLimit);
  for (;;) {
    const bool shows = (window_ || canvas_) && !pictureLost_;
    const bool sounds = hasSound_ && !soundLost_;
    pipeline_.UseSinks(sounds ? MakeSoundSink() : MakeSilentSink(), shows ? MakeSinkForPictures() : MakeSilentSink());
    const Pipeline::Event event = pipeline_.Prepare(deadline.Left());
    connected_ = event == Pipeline::Event::kNone;
    failed_ = !connected_;
    if (connected_) break;
    if (event == Pipeline::Event::kSoundLost && sounds) {
      soundLost_ = true;
    } else if (event == Pipeline::Event::kPictureLost && shows) {
      pictureLost_ = true;
    } else {
      mode_ = Mode::kStopped;
      return false;
    }
  }
  if (position_ > 0) ShowStill();
  return true;
}

/// Seeks the paused pipeline to `position_`, so that it shows the picture there.
void Medium::ShowStill() {
  const int place = length_ ? std::min(position_, std::max(*length_ - kLastPicture, 0)) : position_;
  pipeline_.Seek(std::int64_t{start_} + place);
}

MediaStatus Medium::Play() {
  if (mode_ == Mode::kPlaying || (length_ && position_ >= *length_)) return {};
  if (nothingLeft_) {
    position_ = length_.value_or(position_);
    return {};
  }
  if (!connected_ && !Connect()) return MediaError::kNotReady;
  pipeline_.Run();
  mode_ = Mode::kPlaying;
  return {};
}

void Medium::Pause() {
  if (mode_ != Mode::kPlaying) return;
  pipeline_.Hold();
  position_ = Position();
  mode_ = Mode::kPaused;
}

MediaStatus Medium::Resume() {
  return mode_ == Mode::kPaused ? Play() : MediaStatus();
}

void Medium::Stop() {
  failed_ = false;
  if (mode_ == Mode::kStopped) return;
  pipeline_.Hold();
  position_ = Position();
  mode_ = Mode::kStopped;
}

MediaStatus Medium::Seek(std::int32_t milliseconds) {
  if (milliseconds < 0 || milliseconds > Length()) return MediaError::kOutOfRange;
  if (mode_ == Mode::kPlaying) pipeline_.Hold();
  mode_ = Mode::kStopped;
  position_ = milliseconds;
  nothingLeft_ = false;
  failed_ = false;
  if (connected_) ShowStill();
  Update();
  return {};
}

MediaStatus Medium::SetWindow(std::uint64_t owner) {
  if (!picture_) return MediaError::kNoPicture;
  std::unique_ptr<PictureWindow> window;
  if (owner != 0) {
    window = PictureWindow::Make(owner, destination_);
    if (!window) return MediaError::kNoPicture;
  }
  return ShowIn(std::move(window), nullptr);
}

MediaStatus Medium::SetCanvas(std::shared_ptr<PictureCanvas> canvas) {
  if (!picture_) return MediaError::kNoPicture;
  return ShowIn(nullptr, std::move(canvas));
}

MediaStatus Medium::ShowIn(std::unique_ptr<PictureWindow> window, std::shared_ptr<PictureCanvas> canvas) {
  position_ = Position();
  pictureLost_ = false;
  std::swap(window_, window);
  canvas_ = std::move(canvas);
  if (!Connect()) return MediaError::kNotReady;
  if (mode_ == Mode::kPlaying) pipeline_.Run();
  return {};
}

MediaStatus Medium::Put(const std::optional<PictureRectangle>& rectangle) {
  if (!picture_) return MediaError::kNoPicture;
  destination_ = rectangle;
  if (!window_) return {};
  window_->Move(rectangle);
  pipeline_.Redraw();
  position_ = Position();
  if (connected_ && mode_ != Mode::kPlaying) ShowStill();
  return {};
}

int Medium::Position() {
  if (mode_ == Mode::kStopped) return position_;
  // Clamped, because program streams report positions behind their end, and just after a seek there may be no position
  // yet.
  const int seen = pipeline_.Position().value_or(0) - start_;
  position_ = std::clamp(seen, position_, std::max(length_.value_or(std::numeric_limits<int>::max()), position_));
  return position_;
}

PictureRectangle Medium::Destination() const {
  if (window_) return window_->Rectangle();
  const PictureSize natural = picture_.value_or(PictureSize());
  return destination_.value_or(PictureRectangle{0, 0, natural.width, natural.height});
}

}  // namespace quillon
