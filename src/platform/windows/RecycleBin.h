#pragma once

#include <windows.h>

#include <shobjidl.h>

#include <cstdint>
#include <optional>
#include <string>

namespace quillon {

/// Which confirmations the shell shows.
enum class BinQuestions {
  kAsTheUserWants,  ///< the shell's confirmation, if the user's settings enable it
  kOnlyBeforeLoss,  ///< for tests: only the warning before a file that cannot be recycled is destroyed
};

/// Moves a file to the recycle bin, with the results of FileChanges::Recycle. If the file cannot be recycled, the shell
/// asks before destroying it. The calling thread must not be in COM's multithreaded apartment.
[[nodiscard]] int MoveToRecycleBin(const std::string& path, std::uintptr_t ownerWindow,
                                   BinQuestions questions = BinQuestions::kAsTheUserWants);

/// The same through IFileOperation; nullopt when the shell does not implement it and nothing was done.
[[nodiscard]] std::optional<int> RecycleBy(IFileOperation& operation, IShellItem* file, HWND owner,
                                           BinQuestions questions);

}  // namespace quillon
