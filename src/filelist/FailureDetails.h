#pragma once

#include <string>

#include "platform/FileSystem.h"
#include "platform/PathStyle.h"

namespace quillon {

/// What a box about a failed rename or move shows on demand, lines ending with "\r\n": the file's path, its new path
/// where there is one, what is behind an error 53 (the file or the new folder is gone, the name is too long, or the
/// volume refuses it),
/// and the system's own words.
[[nodiscard]] std::string FailureDetails(FileReads& files, const std::string& from, const std::string& to,
                                         const FileError& error, PathStyle style = SystemPathStyle());

/// The same for a rename name that holds a character that a file name may not hold, at this 1-based position in
/// characters.
[[nodiscard]] std::string InvalidCharacterDetails(const std::string& path, const std::string& renameName, int position);

}  // namespace quillon
