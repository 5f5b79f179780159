#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace quillon {

/// A file that is written at its end only, and not buffered: what was appended is there when this program is killed.
class AppendedFile {
 public:
  AppendedFile() = default;
  AppendedFile(const AppendedFile&) = delete;
  AppendedFile& operator=(const AppendedFile&) = delete;
  virtual ~AppendedFile() = default;

  /// Appends the bytes, in one call of the system where it takes them at once. After an error the file is as before, as
  /// far as the system allows.
  [[nodiscard]] virtual FileOutcome Append(std::string_view bytes) = 0;
};

/// Opens a file for appending, and makes it where it does not exist.
[[nodiscard]] Result<std::unique_ptr<AppendedFile>, FileError> OpenAppendedFile(const std::string& path);

}  // namespace quillon
