#include "platform/multimedia/MediaDevice.h"

#include <functional>
#include <utility>

#include "platform/multimedia/linux/Medium.h"

namespace quillon {
namespace {

class GstMediaDevice final : public MediaDevice {
 public:
  MediaStatus Open(const std::string& path) override {
    if (medium_) return MediaError::kAliasInUse;
    Result<std::unique_ptr<Medium>, MediaError> medium = Medium::Open(path);
    if (!medium) return medium.Failure();
    medium_ = std::move(*medium);
    return {};
  }

  MediaStatus Close() override {
    if (!medium_) return MediaError::kNotOpen;
    medium_.reset();
    return {};
  }

  MediaStatus Play() override {
    return With([](Medium& medium) { return medium.Play(); });
  }

  MediaStatus Pause() override {
    return With([](Medium& medium) {
      medium.Pause();
      return MediaStatus();
    });
  }

  MediaStatus Stop() override {
    return With([](Medium& medium) {
      medium.Stop();
      return MediaStatus();
    });
  }

  MediaStatus Seek(std::int32_t position) override {
    return With([position](Medium& medium) { return medium.Seek(position); });
  }

  MediaStatus SeekToStart() override { return Seek(0); }

  MediaMode Mode() override {
    if (!medium_) return MediaMode::kNone;
    medium_->Update();
    if (medium_->Failed()) return MediaMode::kNone;
    switch (medium_->CurrentMode()) {
      case Medium::Mode::kStopped: return MediaMode::kStopped;
      case Medium::Mode::kPlaying: return MediaMode::kPlaying;
      case Medium::Mode::kPaused: return MediaMode::kPaused;
    }
    return MediaMode::kOther;
  }

  std::int32_t Position() override {
    if (!medium_) return 0;
    medium_->Update();
    return medium_->Position();
  }

  std::optional<std::int32_t> Length() override {
    if (!medium_) return 0;
    medium_->Update();
    return medium_->Length();
  }

  std::int32_t LengthOf(const std::string& path) override {
    const Result<std::unique_ptr<Medium>, MediaError> medium = Medium::Open(path);
    return medium ? (*medium)->Length() : 0;
  }

  std::optional<PictureSize> Picture() override {
    if (!medium_) return std::nullopt;
    return medium_->Picture();
  }

  MediaStatus SetWindow(std::uintptr_t handle) override {
    return With([handle](Medium& medium) { return medium.SetWindow(handle); });
  }

  MediaStatus SetCanvas(std::shared_ptr<PictureCanvas> canvas) override {
    return With([&canvas](Medium& medium) { return medium.SetCanvas(std::move(canvas)); });
  }

  MediaStatus PutPicture(PictureSize destination) override {
    const PictureRectangle rectangle = {0, 0, destination.width, destination.height};
    return With([&rectangle](Medium& medium) { return medium.Put(rectangle); });
  }

  MediaStatus CloseAll() override {
    medium_.reset();
    return {};
  }

 private:
  MediaStatus With(const std::function<MediaStatus(Medium&)>& command) {
    if (!medium_) return MediaError::kNotOpen;
    medium_->Update();
    return command(*medium_);
  }

  std::unique_ptr<Medium> medium_;
};

}  // namespace

std::unique_ptr<MediaDevice> MakeMediaDevice() {
  return std::make_unique<GstMediaDevice>();
}

}  // namespace quillon
