#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"
#include "platform/multimedia/CommandDevice.h"
#include "platform/multimedia/MediaDevice.h"

namespace quillon {

/// Plays by command strings: the file under the alias "MCI"; a second alias, "MCILENGTH", is only open while a file's
/// length is read. The tests state the commands of each call and their order.
class basMCIControl : public MediaDevice {
 public:
  /// Both must outlive this object.
  basMCIControl(CommandDevice& device, FileReads& files) : device_(device), files_(files) {}

  /// Fails with kFileNotFound, without sending a command, when the file does not exist.
  MediaStatus Open(const std::string& path) override;
  MediaStatus Close() override;
  MediaStatus Play() override;
  MediaStatus Pause() override;
  MediaStatus Stop() override;
  MediaStatus Seek(std::int32_t position) override;
  MediaStatus SeekToStart() override;
  [[nodiscard]] MediaMode Mode() override;
  [[nodiscard]] std::int32_t Position() override;
  [[nodiscard]] std::optional<std::int32_t> Length() override;
  [[nodiscard]] std::int32_t LengthOf(const std::string& path) override;
  [[nodiscard]] std::optional<PictureSize> Picture() override;
  MediaStatus SetWindow(std::uintptr_t handle) override;
  MediaStatus SetCanvas(std::shared_ptr<PictureCanvas> canvas) override;
  MediaStatus PutPicture(PictureSize destination) override;
  MediaStatus CloseAll() override;

 private:
  MediaStatus Send(const std::string& command);
  /// Empty for a command that failed.
  [[nodiscard]] std::string Ask(const std::string& command, int replySize);

  CommandDevice& device_;
  FileReads& files_;
};

/// The size from "left top width height"; an empty size when it is missing. nullopt for an empty reply: no picture.
[[nodiscard]] std::optional<PictureSize> PictureIn(std::string_view source);

/// The number that a reply starts with (blanks, sign, digits, decimal point), rounded with halves to even; 0 when it
/// starts with none. nullopt beyond 32 bits.
[[nodiscard]] std::optional<std::int32_t> ReplyNumber(std::string_view reply);

}  // namespace quillon
