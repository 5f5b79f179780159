#pragma once

#include <string>

#include "cli/HelpTexts.h"
#include "filelist/FileItem.h"
#include "filelist/FolderSearch.h"
#include "filelist/PassedOver.h"
#include "fileops/FileOperations.h"
#include "pattern/PatternForm.h"
#include "platform/FileSystem.h"
#include "rename/basQuillon.h"

/// The texts that the windows show, too, in the user's language: in Japanese the windows' own, else an English form.
namespace quillon::cli {

[[nodiscard]] std::string ReasonFor(ApplyCode code);
[[nodiscard]] std::string ReasonFor(Obstacle obstacle);
/// Empty for errors without a specific text.
[[nodiscard]] std::string ReasonForMove(const FileError& error);
[[nodiscard]] std::string ReasonForDelete(const FileError& error);
/// With the place in the pattern.
[[nodiscard]] std::string ReasonFor(const PatternError& error);
[[nodiscard]] std::string ReasonFor(const PatternRefusal& refusal);
[[nodiscard]] std::string Heading(Column column);
[[nodiscard]] std::string WhereLeft(const FileError& error);
[[nodiscard]] std::string WhatWasNotKept(const NotKept& notKept);

/// "3 個の..." or "...: 3".
[[nodiscard]] std::string Counting(const HelpText& text, int count);

[[nodiscard]] std::string AppliedCount(int applied);
[[nodiscard]] std::string SkippedCount(int skipped);
[[nodiscard]] std::string LeftAloneCount(int count);

/// The messages of a load, which name its subject or not.
[[nodiscard]] std::string LoadCaption();
[[nodiscard]] std::string NothingFound(const std::string& filter, const FoundFiles& found);
[[nodiscard]] std::string FolderListed(const std::string& folder);
[[nodiscard]] std::string FileListed();
[[nodiscard]] std::string LoadFailure(const FileError& error);

}  // namespace quillon::cli
