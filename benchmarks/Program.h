#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "base/Progress.h"
#include "filelist/FileList.h"
#include "filelist/FolderSearch.h"
#include "filelist/Registration.h"
#include "filelist/WindowPorts.h"
#include "platform/FileSystem.h"
#include "rename/RegexReplace.h"
#include "rename/basQuillon.h"
#include "settings/ApplyMode.h"

namespace quillon::benchmarks {

/// No library for regular expressions.
class NoRegex final : public RegexEngine {
 public:
  std::optional<std::string> Replace(std::string_view, std::string_view) override { return std::nullopt; }
};

/// The program without a window.
struct Program {
  explicit Program(const FileReadsOptions& reads = {}) : files(MakeFileReads(reads)) {
    options.list.searchSubfolders = true;
  }

  /// Searches the folder, and lists what it finds.
  void Load(const std::string& folder) {
    const FoundFiles found = FolderSearch(*files, unwatched).Search(folder, SearchFilter(options.find), true);
    RegisterFiles(list, *files, found.paths, {}, unwatched);
  }

  /// Applies the rename names of all rows.
  BatchOutcome Apply() {
    return engine.Apply(Rows::kAll, unwatched, [](const RowOutcome&) { return true; });
  }

  Unwatched unwatched;
  NoRegex noRegex;
  FileList list;
  OptionValues options;
  ApplyMode mode;
  PlayerControl player;  ///< none
  std::unique_ptr<FileReads> files;
  std::unique_ptr<FileChanges> disk = MakeFileChanges();
  RenameEngine engine{list, mode, *disk, player};
};

}  // namespace quillon::benchmarks
