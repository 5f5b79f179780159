#pragma once

#include <cstdint>
#include <string>

/// Opening documents and folders with the desktop's default program.
namespace quillon {

/// The results of `OpenWithShell` that callers distinguish. Other results up to kShellMostFailures are failures of the
/// system; larger ones are successes.
inline constexpr int kShellFileNotFound = 2;
inline constexpr int kShellNoProgram = 31;
inline constexpr int kShellMostFailures = 32;  ///< answers up to this one are failures
inline constexpr int kShellOpened = 42;

/// Opens a file, a folder (its path may end with a separator) or an address ("https://...") with the verb "Open", in a
/// normal window. `ownerWindow` is a native window handle for the system's own messages, 0 for none.
[[nodiscard]] int OpenWithShell(const std::string& target, std::uintptr_t ownerWindow = 0);

/// The desktop's description of files with this extension, which is given without its dot; empty when it has none.
[[nodiscard]] std::string FileTypeDescription(const std::string& extension);

}  // namespace quillon
