#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/PathList.h"
#include "base/Progress.h"
#include "filelist/PassedOver.h"
#include "platform/FileSystem.h"
#include "platform/PathStyle.h"
#include "settings/OptionValues.h"

namespace quillon {

/// The filter list of a folder load: the extension lists of the enabled groups, separated by single spaces; empty,
/// which matches every file, when the filter is off.
[[nodiscard]] std::string SearchFilter(const OptionValues::Find& find);

/// True for a path inside the recycle bin, which loads leave out: ":\recycled" and ":\$recycle.bin" on Windows, the
/// trash folders of the desktop standard and `userTrash` on Linux.
[[nodiscard]] bool IsInRecycleBin(std::string_view path, std::string_view userTrash, PathStyle style);

struct FoundFiles {
  PathList paths;  ///< folder by folder: a folder's own files, then its subfolders', each sorted by name
  std::vector<PassedOver> passedOver;
  std::size_t otherFiles = 0;         ///< files that do not pass the filter
  std::size_t unsearchedFolders = 0;  ///< folders that were not entered because subfolders were not wanted
  std::size_t inRecycleBin = 0;       ///< files that LeaveOutRecycleBin has removed
  bool cancelled = false;             ///< `progress` ended the search
  std::optional<FileError> error;     ///< the error that ended the search
};

/// Removes the paths inside a recycle bin.
void LeaveOutRecycleBin(FoundFiles& found, PathStyle style = SystemPathStyle());

/// Searches a folder. A link to a folder is followed, unless its target is searched anyway (inside the searched folder,
/// or inside the target of an earlier link) or contains the folder that the search is in.
class FolderSearch {
 public:
  /// `progress` gets each folder with the number of files found so far, and is asked at each entry whether to go on.
  FolderSearch(FileReads& files, Progress& progress, PathStyle style = SystemPathStyle());

  /// Searches `folder` for files that pass the filter list. A folder below it that cannot be read, or lies more than a
  /// thousand folders down, is skipped and listed in `passedOver`.
  [[nodiscard]] FoundFiles Search(const std::string& folder, const std::string& filter, bool subfolders);

 private:
  bool SearchFolder(const std::string& folder, int depth);
  bool SearchBelow(const std::string& folder, const FolderEntry& entry, int depth);
  bool FollowLink(const std::string& folder, const FolderEntry& link);
  std::optional<std::string> RealPath(const std::string& folder);

  FileReads& files_;
  Progress& progress_;
  PathStyle style_;
  // Of the running search:
  std::unique_ptr<FolderListings> listings_;
  std::string filter_;
  bool subfolders_ = false;
  FoundFiles found_;
  std::string root_;
  std::vector<std::string> searched_;    // real folders that are searched whole; empty until the first link
  std::vector<std::string> linkedFrom_;  // the real folders of the links being followed
  struct {
    std::string folder;
    std::string path;
  } realFolder_;  // of the folder whose links were followed last
};

}  // namespace quillon
