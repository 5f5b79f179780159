#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "base/Ports.h"
#include "filelist/FileList.h"
#include "filelist/FolderSearch.h"
#include "filelist/WindowPorts.h"
#include "platform/FileSystem.h"
#include "settings/ApplyMode.h"
#include "settings/OptionValues.h"

namespace quillon {

/// One entry of the open-file dialog's filter list.
struct FileDialogFilter {
  std::string description;
  std::string pattern;

  bool operator==(const FileDialogFilter&) const = default;
};

/// The pattern that the filter options give: "*.mid;*.midi", or "*.*" when the filter is off.
[[nodiscard]] std::string OpenFilePattern(const OptionValues::Find& find);

/// The whole filter list of the open-file dialog, in its order.
[[nodiscard]] std::vector<FileDialogFilter> OpenFileFilters(const OptionValues::Find& find);

inline constexpr const char* kOpenFileTitle = "ファイルを開く";

enum class LoadOutcome {
  kLoaded,     ///< at least one file was asked for and read
  kDuplicate,  ///< the file or folder is listed already
  kNothing,    ///< the folder holds no matching file, or the file has vanished
  kCancelled,  ///< a dialog or the search was cancelled; nothing was registered
  kFailed,     ///< an error ended the load; rows registered before it stay
};

/// Brings files into the list: from a folder, one by one, from the command line and from drops; and reads them anew.
class FileLoader {
 public:
  struct Ports {
    FileReads& files;
    MessageBoxes& boxes;
    PendingMessages& pending;
    SearchDisplay& search;
    ProgressDisplay& progress;
    FolderDialog& folders;
    StatusPanels& panels;
    FilePanel& filePanel;
    PlayerControl& player;
  };

  FileLoader(FileList& list, OptionValues& options, ApplyMode& mode, Ports ports, PathStyle style = SystemPathStyle(),
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
  void Cancel() {
    cancelled_ = true;
    search_.Cancel();
  }

 private:
  LoadOutcome Register(std::vector<std::string> paths);
  FoundFiles Search(const std::string& folder);
  std::optional<FileError> AddFound(std::vector<std::string> paths);
  LoadOutcome Failed(const FileError& error);
  void AddFiles(const std::vector<std::string>& paths);
  std::size_t AddEach(const std::vector<std::string>& paths);
  void ReadRowsAnew();
  void TellDuplicates(std::size_t count);
  Result<FileItem, FileError> MakeRow(const std::string& path);
  void ResetPanels();
  void ShowFirstRow();
  std::string ChooseFolder();

  FileList& list_;
  OptionValues& options_;
  ApplyMode& mode_;
  Ports ports_;
  PathStyle style_;
  std::chrono::milliseconds progressInterval_;
  FolderSearch search_;
  bool cancelled_ = false;
};

}  // namespace quillon
