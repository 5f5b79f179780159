#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "base/Result.h"
#include "platform/multimedia/MediaStatus.h"

/// Plays sound and pictures by command strings, as the Windows multimedia API (MCI, `mciSendString`) defines them:
/// `Open "song.mp3" alias X`, `Play X`, `status X mode`. Keywords and aliases ignore letter case; each file is opened
/// under a different alias.
namespace quillon {

/// The device's reply in UTF-8 (empty for commands without a reply), or the error.
using CommandReply = Result<std::string, MediaError>;

/// Must be used from one thread only. The destructor closes everything that is open.
class CommandDevice {
 public:
  /// Linux: opening more files fails (kTooManyOpen). An open file takes about ten descriptors, five threads and, with a
  /// MIDI file's instruments, ten megabytes; a process that ran out of them could neither play nor close. Windows has
  /// its own limits.
  static constexpr std::size_t kMostOpen = 32;

  virtual ~CommandDevice() = default;
  /// Executes the command and waits until it is accepted. Opening gives up after five seconds on Linux; on Windows the
  /// system decides. On Linux, a file that fails during playback has no mode (kNotReady) until it is played again; on
  /// Windows the system decides. `replySize` is the size of the reply buffer in characters, including the terminator: a
  /// longer reply is cut; 0 when no reply is wanted.
  virtual CommandReply Send(const std::string& command, int replySize) = 0;
};

[[nodiscard]] std::unique_ptr<CommandDevice> MakeCommandDevice();

}  // namespace quillon
