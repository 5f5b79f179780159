#pragma once

#include <optional>
#include <string>

#include "cli/HelpTexts.h"

/// What a person or another program hands to a command besides its arguments.
namespace quillon::cli {

/// The content of a file that an option names, "-" for standard input. On failure it complains and returns nullopt.
[[nodiscard]] std::optional<std::string> ReadInput(const std::string& path);

/// Whether a command changes files at once, only shows, or asks in between.
enum class Mode { kShow, kApply, kAsk };

template <class Arguments>
[[nodiscard]] Mode ModeOf(const Arguments& arguments) {
  if (arguments.ask) return Mode::kAsk;
  return arguments.apply ? Mode::kApply : Mode::kShow;
}

/// False when there is no terminal to ask on; it has complained then.
[[nodiscard]] bool CanAsk();

/// Asks once, and returns true when the answer is yes.
[[nodiscard]] bool Ask(const HelpText& question);

}  // namespace quillon::cli
