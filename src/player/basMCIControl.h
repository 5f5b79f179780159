#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"
#include "platform/multimedia/CommandDevice.h"
#include "platform/multimedia/PictureSize.h"

/// The only place that talks to the multimedia device: one file plays under the alias "MCI"; a second alias,
/// "MCILENGTH", lives only while a file's length is asked.
namespace quillon {

/// The two paths that the whole program shares about playing.
struct PlayerPaths {
  std::string playFilePath;     ///< chosen for playing; empty while none is
  std::string playingFilePath;  ///< open under the alias "MCI"; empty while nothing is
};

enum class MCIMode {
  kPlaying,
  kPaused,
  kStopped,
  kOther,
  kNone,  ///< nothing is open, or what is open has failed
};

/// What `MCICommand` returns.
namespace mci_result {
inline constexpr std::int16_t kSent = 0;  ///< also when the device reported a failure
inline constexpr std::int16_t kFileMissing = 1;
inline constexpr std::int16_t kUnknownVerb = 2;
}  // namespace mci_result

/// Times are milliseconds. A device that fails leaves everything as it was: callers find out by asking for the mode.
class basMCIControl {
 public:
  /// All three must outlive this.
  basMCIControl(CommandDevice& device, FileReads& files, const PlayerPaths& paths);

  /// "open" (the file PlayFilePath), "play", "stop", "pause", "prev" (back to the start) or "close", in any letter
  /// case; see mci_result.
  std::int16_t MCICommand(std::string_view verb);

  /// The device's answer, filled up with blanks to 16 characters; blank while nothing is open.
  [[nodiscard]] std::string MCIStatusMode();
  [[nodiscard]] MCIMode Mode();
  /// True when the device refused the last command.
  [[nodiscard]] bool Refused() const { return refused_; }

  /// 0 while nothing is open.
  [[nodiscard]] std::int32_t MCIPosition();
  /// The device is stopped then.
  void MCISeek(std::int32_t position);

  /// How long the file PlayFilePath plays; 0 when it cannot be opened. Does not disturb what plays.
  [[nodiscard]] std::int32_t MCIFileLength();

  /// How long the open file plays, 0 without an answer; nullopt when the answer is no time.
  [[nodiscard]] std::optional<std::int32_t> Length();

  /// The place of the open file's picture, "left top width height"; empty for sound alone.
  [[nodiscard]] std::string Source();

  /// The device draws the picture into this native window.
  void SetWindow(std::uintptr_t handle);
  /// The picture is stretched to this many pixels of the window, from its corner.
  void SetDestination(int width, int height);

  void CloseAll();

 private:
  void Send(const std::string& command);
  std::string Ask(const std::string& command, int replySize);

  CommandDevice& device_;
  FileReads& files_;
  const PlayerPaths& paths_;
  bool refused_ = false;
};

/// The size in the answer of `Source`; nullopt when it is none.
[[nodiscard]] std::optional<PictureSize> PictureSizeOf(std::string_view source);

/// The number that a reply starts with (blanks, sign, digits, decimal point), rounded with halves to even; 0 when it
/// starts with none. nullopt beyond 32 bits.
[[nodiscard]] std::optional<std::int32_t> ReplyNumber(std::string_view reply);

}  // namespace quillon
