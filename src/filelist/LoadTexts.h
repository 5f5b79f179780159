#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/Ports.h"
#include "filelist/FolderSearch.h"
#include "platform/FileSystem.h"

/// The messages of a load. Lines end with "\r\n".
namespace quillon {

inline constexpr const char* kLoadCaption = "フォルダ参照";
inline constexpr const char* kNothingFoundText = "指定されたフォルダ内にファイルが見つかりませんでした";

/// What explains kNothingFoundText: the extensions that were searched for, and the numbers of what was left out.
[[nodiscard]] std::vector<std::string> NothingFoundFacts(const std::string& filter, const FoundFiles& found);

/// Whether to look into another folder, with these facts as its details, and into the subfolders if some were not
/// searched.
[[nodiscard]] QuestionMessage NothingFoundQuestion(const std::string& folder, const std::string& filter,
                                                   const FoundFiles& found);

[[nodiscard]] std::string FolderListedText(const std::string& folder);
[[nodiscard]] std::string FilesListedText(std::size_t count);

/// The message for an error that ended a load.
[[nodiscard]] std::string LoadFailureText(const FileError& error);

}  // namespace quillon
