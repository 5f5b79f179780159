#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/PictureCanvas.h"
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

/// Plays the sound and the picture of one file at a time. Times are milliseconds. A failed command changes nothing;
/// callers that ignore its status can see the result in the mode. Must be used from one thread only. The destructor
/// closes everything that is open.
class MediaDevice {
 public:
  virtual ~MediaDevice() = default;

  /// Fails with kAliasInUse while a file is open, and keeps that file.
  virtual MediaStatus Open(const std::string& path) = 0;
  virtual MediaStatus Close() = 0;

  /// Plays from the current position; resumes a paused file. Does nothing at the end.
  virtual MediaStatus Play() = 0;
  virtual MediaStatus Pause() = 0;
  virtual MediaStatus Stop() = 0;
  /// Goes to the position and stops.
  virtual MediaStatus Seek(std::int32_t position) = 0;
  virtual MediaStatus SeekToStart() = 0;

  [[nodiscard]] virtual MediaMode Mode() = 0;
  /// 0 while nothing is open.
  [[nodiscard]] virtual std::int32_t Position() = 0;
  /// 0 while nothing is open or the length is unknown; nullopt when the device's reply is not a time.
  [[nodiscard]] virtual std::optional<std::int32_t> Length() = 0;
  /// The length of another file; 0 when it cannot be opened. Does not disturb the open file.
  [[nodiscard]] virtual std::int32_t LengthOf(const std::string& path) = 0;

  /// nullopt for sound only. A picture without width or height cannot be shown.
  [[nodiscard]] virtual std::optional<PictureSize> Picture() = 0;
  /// Draws the picture into this native window.
  virtual MediaStatus SetWindow(std::uintptr_t handle) = 0;
  /// Passes the pictures to this canvas instead; only on systems where a window may have no handle.
  virtual MediaStatus SetCanvas(std::shared_ptr<PictureCanvas> canvas) = 0;
  /// Stretches the picture to this many pixels of the window, from its corner.
  virtual MediaStatus PutPicture(PictureSize destination) = 0;

  /// Closes everything that the process has opened.
  virtual MediaStatus CloseAll() = 0;
};

[[nodiscard]] std::unique_ptr<MediaDevice> MakeMediaDevice();

}  // namespace quillon
