#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/multimedia/MediaStatus.h"
#include "platform/multimedia/PictureSize.h"

namespace quillon {

enum class MediaMode {
  kNone,  ///< nothing is open, or what is open has failed
  kStopped,
  kPlaying,
  kPaused,
  kOther,  ///< what only some of Windows' devices know: seeking, not ready
};

/// Plays the sound and the picture of one file at a time. Times are milliseconds. A command that fails leaves
/// everything as it was; whoever passes over its status learns by the mode what came of it. Must be used from one
/// thread only. What is open is closed with the device.
class MediaDevice {
 public:
  virtual ~MediaDevice() = default;

  /// kAliasInUse while a file is open: that one stays.
  virtual MediaStatus Open(const std::string& path) = 0;
  virtual MediaStatus Close() = 0;

  /// From where the file stands; a paused one goes on. At its end this plays nothing.
  virtual MediaStatus Play() = 0;
  virtual MediaStatus Pause() = 0;
  virtual MediaStatus Stop() = 0;
  /// The file is stopped there.
  virtual MediaStatus Seek(std::int32_t position) = 0;
  virtual MediaStatus SeekToStart() = 0;

  [[nodiscard]] virtual MediaMode Mode() = 0;
  /// 0 while nothing is open.
  [[nodiscard]] virtual std::int32_t Position() = 0;
  /// 0 while nothing is open, or while it is not known; nullopt when the device's answer is no time.
  [[nodiscard]] virtual std::optional<std::int32_t> Length() = 0;
  /// How long another file plays; 0 when it cannot be opened. Does not disturb the open one.
  [[nodiscard]] virtual std::int32_t LengthOf(const std::string& path) = 0;

  /// nullopt for sound alone. A picture of no width or height cannot be shown.
  [[nodiscard]] virtual std::optional<PictureSize> Picture() = 0;
  /// The picture is drawn into this native window.
  virtual MediaStatus SetWindow(std::uintptr_t handle) = 0;
  /// The picture is stretched to this many pixels of the window, from its corner.
  virtual MediaStatus PutPicture(PictureSize destination) = 0;

  /// Closes whatever the process has opened.
  virtual MediaStatus CloseAll() = 0;
};

[[nodiscard]] std::unique_ptr<MediaDevice> MakeMediaDevice();

}  // namespace quillon
