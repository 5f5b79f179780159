#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "filelist/FolderSearch.h"
#include "platform/FileSystem.h"

/// The messages of a load. Lines end with "\r\n".
namespace quillon {

inline constexpr const char* kLoadCaption = "フォルダ参照";
inline constexpr const char* kNothingFoundText = "指定されたフォルダ内にファイルが見つかりませんでした";

inline constexpr const char* kOtherFolderQuestion = "別のフォルダを参照しますか";

/// What explains kNothingFoundText: the extensions that were searched for, and the numbers of what was left out.
[[nodiscard]] std::vector<std::string> NothingFoundFacts(const std::string& filter, const FoundFiles& found);

[[nodiscard]] std::string FolderListedText(const std::string& folder);
[[nodiscard]] std::string FilesListedText(std::size_t count);

/// The message for an error that ended a load.
[[nodiscard]] std::string LoadFailureText(const FileError& error);

}  // namespace quillon
