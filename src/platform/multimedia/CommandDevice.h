#pragma once

#include <cstddef>
#include <memory>
#include <string>

/// Playing sound and pictures by command strings, as the Windows multimedia API (MCI, `mciSendString`) defines them:
/// `Open "song.mp3" alias X`, `Play X`, `status X mode`. Keywords and aliases are taken in any letter case; each
/// file is open under an alias of its own.
namespace quillon {

/// Failures under the numbers that Microsoft's mmsystem.h gives them.
namespace command_error {
inline constexpr int kUnknownKeyword = 259;    ///< MCIERR_UNRECOGNIZED_KEYWORD
inline constexpr int kUnknownCommand = 261;    ///< MCIERR_UNRECOGNIZED_COMMAND
inline constexpr int kNotOpen = 263;           ///< MCIERR_INVALID_DEVICE_NAME: no such alias is open
inline constexpr int kTooManyOpen = 264;       ///< MCIERR_OUT_OF_MEMORY
inline constexpr int kMissingCommand = 267;    ///< MCIERR_MISSING_COMMAND_STRING: an empty command
inline constexpr int kBadNumber = 270;         ///< MCIERR_BAD_INTEGER
inline constexpr int kMissingParameter = 273;  ///< MCIERR_MISSING_PARAMETER
inline constexpr int kFileNotFound = 275;      ///< MCIERR_FILE_NOT_FOUND
inline constexpr int kNotReady = 276;          ///< MCIERR_DEVICE_NOT_READY
inline constexpr int kInternal = 277;          ///< MCIERR_INTERNAL
inline constexpr int kOutOfRange = 282;        ///< MCIERR_OUTOFRANGE: a position outside the file
inline constexpr int kAliasInUse = 289;        ///< MCIERR_DUPLICATE_ALIAS
inline constexpr int kMissingDevice = 292;     ///< MCIERR_MISSING_DEVICE_NAME: nothing behind the first word
inline constexpr int kNoClosingQuote = 294;    ///< MCIERR_NO_CLOSING_QUOTE
inline constexpr int kInvalidFile = 296;       ///< MCIERR_INVALID_FILE: nothing that can be played
inline constexpr int kNoPicture = 346;         ///< MCIERR_NO_WINDOW
}  // namespace command_error

struct CommandReply {
  int error = 0;          ///< 0, or the number of the failure
  std::string text = {};  ///< UTF-8; empty where the command answers nothing, and on failure

  bool operator==(const CommandReply&) const = default;
};

/// Must be used from one thread only. What is open is closed with the device.
class CommandDevice {
 public:
  /// Linux: a further file is refused (kTooManyOpen). An open file takes some ten descriptors, five threads and, with a
  /// MIDI file's instruments, ten megabytes; a process that has run out of them could neither play nor close. Windows
  /// has limits of its own.
  static constexpr std::size_t kMostOpen = 32;

  virtual ~CommandDevice() = default;
  /// Carries the command out and waits until it is accepted: opening gives up after five seconds on Linux, and takes
  /// what the system takes on Windows. A file that fails while it plays has no mode (kNotReady) until it is played
  /// anew, on Linux; on Windows the system says. `replySize` is the room for the reply in characters, its end mark
  /// included: a longer reply is cut; 0 when none is wanted.
  virtual CommandReply Send(const std::string& command, int replySize) = 0;
};

[[nodiscard]] std::unique_ptr<CommandDevice> MakeCommandDevice();

}  // namespace quillon
