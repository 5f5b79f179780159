#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "app/PassedOverPaths.h"
#include "app/Screen.h"
#include "base/PathList.h"
#include "base/Throttle.h"
#include "filelist/FolderSearch.h"
#include "filelist/Registration.h"
#include "platform/FileSystem.h"

namespace quillon {

enum class LoadOutcome {
  kLoaded,     ///< at least one file was given or found, and no error ended the load
  kDuplicate,  ///< the file or folder is listed already
  kNothing,    ///< the folder holds no matching file, or the file has vanished
  kCancelled,  ///< a dialog or the search was cancelled; nothing was registered
  kFailed,     ///< an error ended the load; rows registered before it stay
};

/// The windows of a load.
struct LoadWindows {
  SearchDisplay& search;
  ProgressDisplay& progress;  ///< over the list
  FolderDialog& folders;
};

/// Adds files to the list, from a folder or one by one, from the command line or from a drop; and reloads listed files.
class LoadCommands {
 public:
  LoadCommands(const Session& session, FileReads& files, const LoadWindows& windows, const Screen& screen,
               std::chrono::milliseconds progressInterval = kProgressInterval);

  /// Asks for a folder and loads it.
  LoadOutcome mnuFolderReference();

  /// Loads this folder without asking.
  LoadOutcome LoadFolder(std::string folder);

  /// Adds one file, whatever the filter says. The caller has just seen that it exists; if it has vanished since, it is
  /// skipped.
  LoadOutcome AddFile(const std::string& path);

  /// Command line and drops: an existing file is added, anything else is loaded as a folder.
  LoadOutcome LoadPath(const std::string& path);

  /// The same for several paths. The list is not cleared, even when loading is set to clear it first. Consecutive files
  /// show their progress, and one message gives the number of those that are already listed.
  void LoadPaths(const std::vector<std::string>& paths);

  /// Asks, then reads every listed file again. Edited rename names are lost; rows whose files no longer exist are
  /// removed; rows whose files cannot be checked at the moment stay unchanged.
  void mnuReload();

  /// Cancels the running load, including its remaining paths. A cancelled search registers nothing; files that are
  /// already listed stay.
  void Cancel() { cancelled_ = true; }

  /// Reports the paths that were skipped since the last report.
  void TellPassedOver() { passedOver_.Tell(screen_.boxes); }

  /// The number of files with tags that only OptionValues::Extra::readMoreTags reads, since the last call.
  [[nodiscard]] std::size_t TakeUnreadTags() { return std::exchange(unreadTags_, 0); }

 private:
  enum class Clearing { kAsOptionsSay, kNever };

  LoadOutcome Load(std::string folder, Clearing clearing);
  LoadOutcome Register(const PathList& paths, Clearing clearing);
  FoundFiles Search(const std::string& folder, bool subfolders);
  [[nodiscard]] RegisterOptions RegisterAs(OnError onError) const;
  Registered Add(const PathList& paths, OnError onError, Progress& progress);
  Registered RegisterShown(const PathList& paths, OnError onError, bool showsStart);
  LoadOutcome Failed(const FileError& error);
  void AddFiles(const std::vector<std::string>& paths);
  void ReadAnew();
  void TellDuplicates(std::size_t count);
  void ShowFirstRow();
  std::string ChooseFolder();

  Session session_;
  FileReads& files_;
  LoadWindows windows_;
  Screen screen_;
  std::chrono::milliseconds progressInterval_;
  PassedOverPaths passedOver_;
  std::size_t unreadTags_ = 0;
  bool cancelled_ = false;
};

}  // namespace quillon
