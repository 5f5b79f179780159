#pragma once

#include <string>
#include <vector>

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

}  // namespace quillon
