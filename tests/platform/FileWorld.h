#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/PathStyle.h"

namespace quillon {

void PrintTo(const FileError& error, std::ostream* out);

}  // namespace quillon

namespace quillon::test {

/// A set of files with an implementation of FileReads and FileChanges for them. The contract tests run on every kind of
/// world. Names may contain "/" for folders.
class FileWorld {
 public:
  FileWorld() = default;
  FileWorld(const FileWorld&) = delete;
  FileWorld& operator=(const FileWorld&) = delete;
  virtual ~FileWorld() = default;

  virtual FileReads& Reads() = 0;
  virtual FileChanges& Changes() = 0;
  [[nodiscard]] virtual PathStyle Style() const = 0;
  [[nodiscard]] virtual bool IgnoresCase() = 0;

  /// The full path of a name, existing or not.
  [[nodiscard]] virtual std::string At(std::string_view name) const = 0;
  virtual std::string Write(std::string_view name, std::string_view bytes) = 0;
  virtual std::string MakeFolder(std::string_view name) = 0;
  /// Returns false where the system does not permit making links.
  [[nodiscard]] virtual bool MakeLink(std::string_view name, std::string_view target, bool toFolder) = 0;
  [[nodiscard]] virtual bool MakeHardLink(std::string_view name, std::string_view existing) = 0;

  /// The names in a folder ("" is the root of the world), sorted by bytes, read without using Reads().
  [[nodiscard]] virtual std::vector<std::string> Names(std::string_view folder = "") const = 0;
  [[nodiscard]] virtual std::string Read(std::string_view name) const = 0;
};

enum class WorldKind { kSystem, kSystemInTurn, kMemoryLinux, kMemoryLinuxIgnoringCase, kMemoryWindows };

void PrintTo(WorldKind kind, std::ostream* out);
[[nodiscard]] std::string NameOf(WorldKind kind);
[[nodiscard]] std::unique_ptr<FileWorld> MakeWorld(WorldKind kind);

}  // namespace quillon::test
