#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "app/PassedOverPaths.h"
#include "app/Screen.h"
#include "base/Throttle.h"
#include "filelist/FolderSearch.h"
#include "filelist/Registration.h"
#include "platform/FileSystem.h"

namespace quillon {

enum class LoadOutcome {
  kLoaded,     ///< at least one file was asked for and read
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

/// Brings files into the list: from a folder, one by one, from the command line and from drops; and reads them anew.
class LoadCommands {
 public:
  LoadCommands(const Session& session, FileReads& files, const LoadWindows& windows, const Screen& screen,
               std::chrono::milliseconds progressInterval = kProgressInterval);

  /// Asks for a folder and loads it.
  LoadOutcome mnuFolderReference();

  /// Loads this folder without asking.
  LoadOutcome LoadFolder(std::string folder);

  /// Adds one file that was there a moment ago, whatever the filter says. One that has vanished is passed over.
  LoadOutcome AddFile(const std::string& path);

  /// Command line and drops: an existing file is added, anything else is loaded as a folder.
  LoadOutcome LoadPath(const std::string& path);

  /// The same for several paths, which all add to one list even when loading is set to clear it first. Files that
  /// follow one another show their progress, and those of them that are listed already are told once, with their
  /// number.
  void LoadPaths(const std::vector<std::string>& paths);

  /// Reads every listed file anew, after asking; edited rename names are lost, rows of files that are gone leave,
  /// rows whose files cannot be looked at just now stay as they are.
  void mnuReload();

  /// Ends what runs, further paths included: of a search nothing is registered, files that are listed already stay.
  void Cancel() { cancelled_ = true; }

  /// Tells which paths were passed over since the last time.
  void TellPassedOver() { passedOver_.Tell(screen_.boxes); }

 private:
  enum class Clearing { kAsOptionsSay, kNever };

  LoadOutcome Load(std::string folder, Clearing clearing);
  LoadOutcome Register(std::vector<std::string> paths, Clearing clearing);
  FoundFiles Search(const std::string& folder);
  Registered RegisterShown(std::vector<std::string> paths, OnError onError, bool showsStart);
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
  bool cancelled_ = false;
};

}  // namespace quillon
