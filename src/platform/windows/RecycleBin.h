#pragma once

#include <windows.h>

#include <shobjidl.h>

#include <cstdint>
#include <optional>
#include <string>

namespace quillon {

/// What is asked of the shell beyond what it always is.
enum class BinQuestions {
  kAsTheUserWants,  ///< the shell's own confirmation, where the user's settings have one
  kOnlyBeforeLoss,  ///< for tests: none but the warning before a file that no bin takes is destroyed
};

/// Moves a file to the recycle bin; the results are those of FileChanges::Recycle. Where no bin takes the file, the
/// shell asks before it destroys it. The calling thread must not be in COM's multithreaded apartment.
[[nodiscard]] int MoveToRecycleBin(const std::string& path, std::uintptr_t ownerWindow,
                                   BinQuestions questions = BinQuestions::kAsTheUserWants);

/// The same by the shell's file operation; nullopt when the shell does not have it and nothing was done.
[[nodiscard]] std::optional<int> RecycleBy(IFileOperation& operation, IShellItem* file, HWND owner,
                                           BinQuestions questions);

}  // namespace quillon
