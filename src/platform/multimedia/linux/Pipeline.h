#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/multimedia/PictureSize.h"
#include "platform/multimedia/linux/GstObjects.h"

namespace quillon {

/// Plays one file into a sound sink and a picture sink. Times are milliseconds. Prepare blocks, and Seek for a short
/// time.
class Pipeline {
 public:
  /// kNoPictureLeft: after a seek so close to a film's end that no complete picture follows, the decoder has stopped.
  enum class Event { kNone, kEnded, kSoundLost, kPictureLost, kNoPictureLeft, kFailed };

  /// `path` is absolute. Without UseSinks nothing is heard or shown.
  explicit Pipeline(const std::string& path);
  Pipeline(const Pipeline&) = delete;
  Pipeline& operator=(const Pipeline&) = delete;
  ~Pipeline();

  /// Stops playing and sets the sinks (floating references, not null).
  void UseSinks(GstElement* sound, GstElement* picture);
  /// Goes to the file's beginning and waits for its first sound and picture. Returns kNone on success.
  [[nodiscard]] Event Prepare(std::chrono::milliseconds limit);

  void Run();
  void Hold();
  /// Seeks to the exact position. Events from before the seek are dropped.
  bool Seek(std::int64_t milliseconds);
  /// Redraws the current picture in the window's current size.
  void Redraw();

  [[nodiscard]] std::optional<int> Length() const;
  [[nodiscard]] std::optional<int> Position() const;
  [[nodiscard]] bool HasSound() const;
  /// The size of the picture in the file. Known after Prepare.
  [[nodiscard]] std::optional<PictureSize> Picture() const;

  /// The next event since the last call.
  [[nodiscard]] Event NextEvent();

 private:
  void Settle();
  void RenewSound();
  [[nodiscard]] Event EventOf(GstMessage* message) const;

  GstOwned<GstElement> player_;
  GstOwned<GstBus> bus_;
  GstElement* sound_ = nullptr;    // owned by the player
  GstElement* picture_ = nullptr;  // owned by the player
  bool hasRun_ = false;            // whether it has played with these sinks since the last seek
};

}  // namespace quillon
