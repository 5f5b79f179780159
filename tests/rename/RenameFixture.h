#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "filelist/FileList.h"
#include "rename/basQuillon.h"
#include "support/MemoryFileSystem.h"
#include "support/Recorders.h"
#include "support/Rows.h"

namespace quillon::test {

/// A list of files in memory and the engine that renames them. Every file's content is its first name.
struct RenameFixture {
  MemoryFileSystem files;
  Recorders ports;
  FileList list;
  OptionValues options;
  ApplyMode mode;
  PathStyle style;
  RenameEngine engine;

  /// Lists one file in "/m/" for each name.
  explicit RenameFixture(const std::vector<std::string>& names = {}, PathStyle pathStyle = PathStyle::kLinux)
      : files({pathStyle, pathStyle == PathStyle::kWindows}),
        list(pathStyle),
        style(pathStyle),
        engine(list, options, mode, {files, files, ports.boxes, ports.filePanel, ports.window, ports.player},
               pathStyle) {
    for (const std::string& name : names) {
      files.AddFile(Path(name), name);
      list.Add(RowFor(Path(name), style));
    }
  }

  [[nodiscard]] std::string Path(std::string_view name) const {
    return (style == PathStyle::kWindows ? "C:\\m\\" : "/m/") + std::string(name);
  }
  [[nodiscard]] std::vector<std::string> Names() const { return files.NamesIn(Path("")); }

  void SetNames(const std::vector<std::string>& renameNames) {
    for (std::size_t i = 0; i < renameNames.size(); ++i) list.SetRenameName(static_cast<int>(i) + 1, renameNames[i]);
  }
};

}  // namespace quillon::test
