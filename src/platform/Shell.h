#pragma once

#include <cstdint>
#include <string>

/// Documents and folders opened with the program that the desktop keeps for them.
namespace quillon {

/// `OpenWithShell`'s answers that callers tell apart; any other up to kShellMostFailures is a failure of the system's
/// own, above is success.
inline constexpr int kShellFileNotFound = 2;
inline constexpr int kShellNoProgram = 31;
inline constexpr int kShellMostFailures = 32;  ///< answers up to this one are failures
inline constexpr int kShellOpened = 42;

/// Opens a file, a folder (its path may end in a separator) or an address ("https://...") with the verb "Open", shown
/// normally. `ownerWindow` is a native window handle for the system's own messages, 0 for none.
[[nodiscard]] int OpenWithShell(const std::string& target, std::uintptr_t ownerWindow = 0);

/// What the desktop calls files with this extension, which comes without its dot; empty where it has no words for them.
[[nodiscard]] std::string FileTypeDescription(const std::string& extension);

}  // namespace quillon
