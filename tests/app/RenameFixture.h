#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/ApplyCommands.h"
#include "app/CommandFixture.h"
#include "rename/RegexReplace.h"
#include "rename/basQuillon.h"
#include "support/Rows.h"

namespace quillon::test {

/// What the wait window begins with while rules run.
inline constexpr const char* kModifyBegin =
    "progress begin: リネーム名を編集中です...\\r\\nしばらくお待ちください |   ファイル名を編集中...";

/// No library for regular expressions.
struct NoRegex final : RegexEngine {
  std::optional<std::string> Replace(std::string_view, std::string_view) override { return std::nullopt; }
};

/// A list of files in memory and the commands that rename them. Every file's content is its first name.
struct RenameFixture : CommandFixture {
  RenameEngine engine{list, mode, files, ports.player, style};
  ApplyCommands applying{session, engine, files, screen};

  /// Lists one file in "/m/" for each name.
  explicit RenameFixture(const std::vector<std::string>& names = {}, PathStyle pathStyle = PathStyle::kLinux)
      : CommandFixture(pathStyle) {
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

/// One file for each title: "1.mid", "2.mid" and so on.
struct TitledFixture : RenameFixture {
  NoRegex regex;

  explicit TitledFixture(const std::vector<std::string>& titles) : RenameFixture(FileNames(titles.size())) {
    for (std::size_t i = 0; i < titles.size(); ++i) {
      FileItem row = list.Row(static_cast<int>(i) + 1).Item();
      row.title = titles[i];
      list.Replace(static_cast<int>(i) + 1, row);
    }
  }

  static std::vector<std::string> FileNames(std::size_t count) {
    std::vector<std::string> names;
    for (std::size_t i = 1; i <= count; ++i) names.push_back(std::to_string(i) + ".mid");
    return names;
  }
};

}  // namespace quillon::test
