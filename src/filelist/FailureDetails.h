#pragma once

#include <string>

#include "platform/FileSystem.h"
#include "platform/PathStyle.h"

namespace quillon {

/// The details of a failed rename or move, shown on demand; lines end with "\r\n": the file's path, its new path if it
/// has one, the cause of an error 53 (the file or the new folder is gone, the name is too long, or the volume refuses
/// it), and the system's message.
[[nodiscard]] std::string FailureDetails(FileReads& files, const std::string& from, const std::string& to,
                                         const FileError& error, PathStyle style = SystemPathStyle());

/// The same for a rename name with a character that a file name may not hold, at this 1-based position in characters.
[[nodiscard]] std::string InvalidCharacterDetails(const std::string& path, const std::string& renameName, int position);

/// True when the file name of this path is longer than its volume holds.
[[nodiscard]] bool IsNameTooLong(FileReads& files, const std::string& path, PathStyle style = SystemPathStyle());

}  // namespace quillon
