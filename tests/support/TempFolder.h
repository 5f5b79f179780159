#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>

namespace quillon::test {

/// The standard library's path for a path of ours, on Linux byte for byte.
[[nodiscard]] std::filesystem::path ToPath(std::string_view text);

/// A private temporary folder on a real disk, removed with its content by the destructor. Its path ends with a
/// separator.
class TempFolder {
 public:
  TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder();

  [[nodiscard]] const std::string& Path() const { return path_; }

  /// Writes a file (missing folders are made); returns its full path. `name` may hold "/" for folders on every system.
  std::string Write(std::string_view name, std::string_view bytes = "") const;
  /// Gives a file another time of its last change.
  void SetModified(std::string_view name, std::chrono::sys_seconds time) const;
  /// Makes a folder; returns its path with trailing separator.
  std::string MakeFolder(std::string_view name) const;
  /// The full path of a name in this folder, existing or not.
  [[nodiscard]] std::string At(std::string_view name) const;
  [[nodiscard]] bool Exists(std::string_view name) const;
  /// The file's bytes; a test failure when it cannot be read.
  [[nodiscard]] std::string Read(std::string_view name) const;

 private:
  std::string path_;
};

}  // namespace quillon::test
