#pragma once

#include <string>

namespace quillon {

/// What the status bar tells of the player.
enum class PlayerState {
  kIdle,  ///< waits, and names no file
  kLoading,
  kPlaying,
  kPaused,
  kStopped,
  kCannotPlay,
  kCutShort,  ///< the file stopped playing somewhere
};

/// As the user reads it: what the player does, and the name of the file.
[[nodiscard]] std::string PlayerText(PlayerState state, const std::string& file);

}  // namespace quillon
