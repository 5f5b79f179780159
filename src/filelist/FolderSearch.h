#pragma once

#include <optional>
#include <string>
#include <vector>

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

/// Takes the paths inside a recycle bin out.
void LeaveOutRecycleBin(std::vector<std::string>& paths, PathStyle style = SystemPathStyle());

struct FoundFiles {
  std::vector<std::string>
      paths;  ///< folder by folder: a folder's own files, then its subfolders', each sorted by name
  std::vector<PassedOver> passedOver;
  bool cancelled = false;          ///< by the progress
  std::optional<FileError> error;  ///< the search ended here
};

/// One search through a folder. A link to a folder is followed unless its folder is searched anyway, as part of the
/// searched folder or of one that an earlier link led to, or the search is inside of it.
class FolderSearch {
 public:
  /// `progress` hears of each folder, with the number of files found so far, and is asked at each entry.
  FolderSearch(FileReads& files, Progress& progress, PathStyle style = SystemPathStyle());

  /// Searches `folder` for files that pass the filter list. A folder below it that cannot be read, or
  /// lies more than a thousand folders down, is passed over.
  [[nodiscard]] FoundFiles Search(const std::string& folder, const std::string& filter, bool subfolders);

 private:
  bool SearchFolder(const std::string& folder, int depth);
  bool SearchBelow(const std::string& folder, const FolderEntry& entry, int depth);
  bool FollowLink(const std::string& folder, const FolderEntry& link);

  FileReads& files_;
  Progress& progress_;
  PathStyle style_;
  // Of the running search:
  std::string filter_;
  bool subfolders_ = false;
  FoundFiles found_;
  std::string root_;
  std::vector<std::string> searched_;    // real folders that are searched whole; empty until the first link
  std::vector<std::string> linkedFrom_;  // the real folders that the search went out of by links
};

}  // namespace quillon
