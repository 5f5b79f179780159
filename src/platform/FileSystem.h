#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/ByteSource.h"
#include "base/Result.h"

/// Files and folders. Paths are UTF-8; on Linux a path is the file system's bytes as they stand, on Windows unpaired
/// surrogates travel as the three bytes that UTF-8 would give them, so that every existing name can be named.
namespace quillon {

/// What went wrong with a file. The logic knows these numbers; any other is unexpected.
namespace file_error {
inline constexpr int kUnreachable = 52;    ///< the folder or volume cannot be reached at all
inline constexpr int kNotFound = 53;       ///< no such file, or a name that the system cannot hold
inline constexpr int kAlreadyOpen = 55;    ///< the file is open
inline constexpr int kAlreadyExists = 58;  ///< the target exists
inline constexpr int kAccess = 75;         ///< permission, read-only volume, sharing violation, busy
inline constexpr int kOwn = 1000;          ///< added to any other number of the system, so that the two never collide
/// The call failed half-way and could not be taken back safely: the file is at FileError::fileAt now.
inline constexpr int kStranded = kOwn;
/// The source of a move was changed or replaced while it was copied: it stays, and so does the copy at
/// FileError::fileAt.
inline constexpr int kBothKept = kOwn - 1;
/// CopyProgress has ended the move: the file is where it was.
inline constexpr int kCancelled = kOwn - 2;
}  // namespace file_error

struct FileError {
  int number = 0;           ///< one of file_error, or file_error::kOwn plus the system's own number
  std::string description;  ///< the system's words for it, UTF-8
  std::string fileAt = {};  ///< where the file, or its copy, is now (kStranded, kBothKept); empty for other errors

  bool operator==(const FileError&) const = default;
};

/// `Recycle`'s answer when the file is still there and the user has not been told.
inline constexpr int kRecycleNotDone = 1026;

/// Empty on success.
using FileOutcome = std::optional<FileError>;

/// What a move to another volume could not keep, because the target has no place for it.
struct NotKept {
  bool times = false;
  bool accessRights = false;  ///< an access list, or a permission that others now have and had not before
  bool attributes = false;    ///< extended attributes

  [[nodiscard]] bool Any() const { return times || accessRights || attributes; }
  void Add(const NotKept& other) {
    times = times || other.times;
    accessRights = accessRights || other.accessRights;
    attributes = attributes || other.attributes;
  }

  bool operator==(const NotKept&) const = default;
};

/// A move that was carried out, or the reason why it was not.
using MoveOutcome = Result<NotKept, FileError>;

struct FolderEntry {
  std::string name;
  bool isFolder = false;  ///< true for a link to a folder, too
  bool isLink = false;

  bool operator==(const FolderEntry&) const = default;
};

struct FileStatus {
  enum class Kind { kAbsent, kFile, kFolder, kOther };
  Kind kind = Kind::kAbsent;
  std::uint64_t length = 0;  ///< bytes; files only
};

/// What a volume counts where it limits the length of a name.
enum class NameUnit { kByte, kUtf16 };

/// What is asked of the disk. Nothing here changes it.
class FileReads {
 public:
  virtual ~FileReads() = default;

  /// The folder's entries without "." and "..", sorted by name ignoring case (upper-case code points, then bytes).
  /// Entries that are neither file nor folder (pipes, sockets, devices) and links that lead nowhere are left out. A
  /// folder that is not there, or is none, is out of reach (52).
  virtual Result<std::vector<FolderEntry>, FileError> ReadFolder(const std::string& folder) = 0;

  /// The folder's path with every link in it resolved, without a trailing separator except for a root; empty when it
  /// cannot be reached.
  virtual std::string RealPath(const std::string& folder) = 0;

  /// Opens a regular file for reading without keeping anyone else out; null when that fails.
  virtual std::unique_ptr<ByteSource> OpenFile(const std::string& path) = 0;

  /// What stands at this path, links followed; kOther for one that leads nowhere. kAbsent is an answer; an error is a
  /// path the system cannot hold (53) or is not allowed to look at (75).
  virtual Result<FileStatus, FileError> Status(const std::string& path) = 0;

  /// True when a file stands at this path, and may be looked at.
  [[nodiscard]] bool IsFile(const std::string& path) {
    const Result<FileStatus, FileError> status = Status(path);
    return status && status->kind == FileStatus::Kind::kFile;
  }

  /// True when both paths name the same existing file.
  virtual bool SameFile(const std::string& left, const std::string& right) = 0;

  /// How the volume of this folder counts the length of a name. kUtf16 where that cannot be known on Linux: a name that
  /// is too long so counted is too long in bytes as well.
  virtual NameUnit NameUnitOf(const std::string& folder) = 0;
};

/// Told how far the copying of a file is.
class CopyProgress {
 public:
  virtual ~CopyProgress() = default;
  /// Called before each further piece with the number of bytes that are copied. False ends the copying.
  virtual bool Continue(std::uint64_t copied) = 0;
};

/// What changes the disk. Each call does the whole thing or nothing; no call ever replaces an existing file.
class FileChanges {
 public:
  virtual ~FileChanges() = default;

  /// Renames within one folder. A rename to the file's own current name succeeds and touches nothing; one that changes
  /// letter case only is carried out on file systems that ignore case, too. Two hard links are two files. On Windows
  /// dots and blanks at the end of the new name are dropped, as everywhere there.
  virtual FileOutcome Rename(const std::string& from, const std::string& to) = 0;

  /// Moves to another folder under the given full path; to another volume by copying, flushing, publishing without
  /// replacing, then deleting the source, if it still is the very file that was copied, unchanged (else kBothKept).
  /// Times, permissions and extended attributes are kept as far as the target volume knows them. A link is moved
  /// itself. A folder is not moved to another volume. `progress` may be null; it is asked only while a file is copied,
  /// and when it ends that, nothing is left of the copy (kCancelled).
  virtual MoveOutcome Move(const std::string& from, const std::string& to, CopyProgress* progress) = 0;
  MoveOutcome Move(const std::string& from, const std::string& to) { return Move(from, to, nullptr); }

  /// Deletes what earlier moves into this folder left behind when they were killed: temporary files that carry this
  /// program's mark, are older than a day and belong to no move that still runs. Never fails: what cannot be deleted
  /// stays until the next time.
  virtual void RemoveLeftovers(const std::string& folder) = 0;

  /// Deletes for good. Never a folder (75). A link is deleted itself.
  virtual FileOutcome Remove(const std::string& path) = 0;

  /// Moves the file to the desktop's recycle bin, the system's own confirmation shown over `ownerWindow` (the native
  /// window handle, 0 for none). Returns 0 when the system reported success; the system's own number when it failed and
  /// told the user so itself; kRecycleNotDone when it failed and nobody was told (Linux). Never deletes for good
  /// instead.
  virtual int Recycle(const std::string& path, std::uintptr_t ownerWindow) = 0;

  /// False where the desktop recycles without a question (Linux): the caller asks then.
  [[nodiscard]] virtual bool RecycleAsks() const { return true; }
};

/// The system's own. Stateless; may be made as often as wanted.
[[nodiscard]] std::unique_ptr<FileReads> MakeFileReads();
[[nodiscard]] std::unique_ptr<FileChanges> MakeFileChanges();

/// Opens one regular file with the system's own reader: OpenFile without an object.
[[nodiscard]] std::unique_ptr<ByteSource> OpenSystemFile(const std::string& path);

/// `path` as a full path: relative ones start at the current folder; "." and doubled separators are dropped, ".." is
/// resolved through the real folder (on Windows as text, as the system does). Does not need to exist. Links in the path
/// stay as they are, and so does a trailing separator. An empty path stays empty.
[[nodiscard]] std::string FullPath(const std::string& path);

/// On Windows: a full path without the prefix that makes the system take it literally, and its short names (8.3)
/// written out as far as the path exists. Elsewhere the path as it is.
[[nodiscard]] std::string LongPath(const std::string& fullPath);

/// The folder where the desktop keeps this user's deleted files, with a trailing separator; empty where there is none
/// with a name of its own (Windows).
[[nodiscard]] std::string UserTrashFolder();

}  // namespace quillon
