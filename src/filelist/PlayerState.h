#pragma once

#include <string>

namespace quillon {

/// The player's state as the status bar shows it.
enum class PlayerState {
  kIdle,  ///< waiting; no file is named
  kLoading,
  kPlaying,
  kPaused,
  kStopped,
  kCannotPlay,
  kCutShort,  ///< the file stopped playing before its end
};

/// The text for the user: what the player does, and the file's name.
[[nodiscard]] std::string PlayerText(PlayerState state, const std::string& file);

}  // namespace quillon
