#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "base/Result.h"
#include "platform/multimedia/MediaStatus.h"

/// Playing sound and pictures by command strings, as the Windows multimedia API (MCI, `mciSendString`) defines them:
/// `Open "song.mp3" alias X`, `Play X`, `status X mode`. Keywords and aliases are taken in any letter case; each
/// file is open under an alias of its own.
namespace quillon {

/// What the device answers, in UTF-8 (empty where the command answers nothing), or why the command failed.
using CommandReply = Result<std::string, MediaError>;

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
