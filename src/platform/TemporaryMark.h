#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"

/// Marks temporary files, so that those of a killed program can be recognised and deleted. The mark is a small file
/// beside the temporary file, with a name derived from its name and with kMarkText as content. It is created first,
/// deleted last, and held open while in use.
namespace quillon {

inline constexpr std::string_view kMarkText =
    "Quillon keeps this note while it writes the file of the same name beside it. When Quillon does not run, both may "
    "be deleted.\n";

/// A temporary file's mark. The destructor deletes it, unless Keep was called. The caller creates and deletes the
/// temporary file itself.
class TemporaryMark {
 public:
  TemporaryMark() = default;
  TemporaryMark(const TemporaryMark&) = delete;
  TemporaryMark& operator=(const TemporaryMark&) = delete;
  virtual ~TemporaryMark() = default;

  /// The full path of the temporary file, which the caller must create exclusively.
  [[nodiscard]] virtual const std::string& Path() const = 0;

  /// Leaves the mark behind, for a useless temporary file that cannot be deleted now.
  virtual void Keep() = 0;
};

/// Marks the temporary file of this full path, whose name is a TemporaryName. kAlreadyExists when it is marked already.
[[nodiscard]] Result<std::unique_ptr<TemporaryMark>, FileError> MarkTemporaryFile(const std::string& path);

/// Marks a new temporary file in this folder, whose path ends with a separator.
[[nodiscard]] Result<std::unique_ptr<TemporaryMark>, FileError> MarkTemporary(const std::string& folder);

/// Deletes the marked temporary files in this folder that are older than a day and not in use, together with their
/// marks.
void RemoveMarkedLeftovers(const std::string& folder);

}  // namespace quillon
