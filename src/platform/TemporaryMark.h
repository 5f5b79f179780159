#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"

/// Temporary files that can be told from everybody else's after their program was killed: beside each stands a small
/// file, its mark, with a name made from the temporary file's and with kMarkText in it. The mark is made first and goes
/// last, and is held open while it is in use.
namespace quillon {

inline constexpr std::string_view kMarkText =
    "Quillon keeps this note while it writes the file of the same name beside it. When Quillon does not run, both may "
    "be deleted.\n";

/// A temporary file's mark; goes with the object, unless it is kept. The temporary file itself is its user's to make
/// and to delete.
class TemporaryMark {
 public:
  TemporaryMark() = default;
  TemporaryMark(const TemporaryMark&) = delete;
  TemporaryMark& operator=(const TemporaryMark&) = delete;
  virtual ~TemporaryMark() = default;

  /// The full path for the temporary file, which is still to be created, exclusively.
  [[nodiscard]] virtual const std::string& Path() const = 0;

  /// Leaves the mark behind, for a temporary file that is of no use and cannot be deleted now.
  virtual void Keep() = 0;
};

/// Marks the temporary file of this full path, whose name is a TemporaryName. kAlreadyExists when it is marked already.
[[nodiscard]] Result<std::unique_ptr<TemporaryMark>, FileError> MarkTemporaryFile(const std::string& path);

/// Marks a new temporary file in this folder, whose path ends with a separator.
[[nodiscard]] Result<std::unique_ptr<TemporaryMark>, FileError> MarkTemporary(const std::string& folder);

/// Deletes the marked temporary files in this folder that are older than a day and in nobody's use, with their marks.
void RemoveMarkedLeftovers(const std::string& folder);

}  // namespace quillon
