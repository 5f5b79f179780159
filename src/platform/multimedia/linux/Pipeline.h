#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/multimedia/PictureSize.h"
#include "platform/multimedia/linux/GstObjects.h"

namespace quillon {

/// One file on its way to a sound and a picture sink. Times are milliseconds. Prepare waits, and Seek for
/// a moment.
class Pipeline {
 public:
  /// kNoPictureLeft: a film was entered so near its end that no whole picture follows; its decoder does not go on.
  enum class Event { kNone, kEnded, kSoundLost, kPictureLost, kNoPictureLeft, kFailed };

  /// An absolute path. Until sinks are given nothing is heard or shown.
  explicit Pipeline(const std::string& path);
  Pipeline(const Pipeline&) = delete;
  Pipeline& operator=(const Pipeline&) = delete;
  ~Pipeline();

  /// Ends what is running and takes the sinks (floating, not null) for what comes next.
  void UseSinks(GstElement* sound, GstElement* picture);
  /// Goes to the file's beginning and waits until its first sound and picture are there. kNone: they are.
  [[nodiscard]] Event Prepare(std::chrono::milliseconds limit);

  void Run();
  void Hold();
  /// To the exact place. What was reported for the place before is forgotten.
  bool Seek(std::int64_t milliseconds);
  /// Draws the picture that is there once more, in the window's size of now.
  void Redraw();

  [[nodiscard]] std::optional<int> Length() const;
  [[nodiscard]] std::optional<int> Position() const;
  [[nodiscard]] bool HasSound() const;
  /// Of the picture as it stands in the file. Known when prepared.
  [[nodiscard]] std::optional<PictureSize> Picture() const;

  /// What has happened since the last call, one thing at a time.
  [[nodiscard]] Event NextEvent();

 private:
  void Settle();
  void RenewSound();
  [[nodiscard]] Event EventOf(GstMessage* message) const;

  GstOwned<GstElement> player_;
  GstOwned<GstBus> bus_;
  GstElement* sound_ = nullptr;    // the player's
  GstElement* picture_ = nullptr;  // the player's
  bool hasRun_ = false;            // with these sinks, since the last seek
};

}  // namespace quillon
