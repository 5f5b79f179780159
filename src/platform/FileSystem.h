#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/ByteSource.h"
#include "base/Progress.h"
#include "base/Result.h"
#include "platform/FilesInTurn.h"
#include "platform/FolderListings.h"

/// Files and folders. Paths are UTF-8; on Linux a path is the file system's bytes unchanged; on Windows unpaired
/// surrogates are encoded as the three bytes that UTF-8 would give them, so that every existing name can be expressed.
namespace quillon {

/// Error numbers for file operations. Logic handles these; any other number is an unexpected error.
namespace file_error {
inline constexpr int kUnreachable = 52;    ///< the folder or volume cannot be reached at all
inline constexpr int kNotFound = 53;       ///< no such file, or a name that the system cannot hold
inline constexpr int kAlreadyOpen = 55;    ///< the file is open
inline constexpr int kAlreadyExists = 58;  ///< the target exists
inline constexpr int kAccess = 75;         ///< permission, read-only volume, sharing violation, busy
inline constexpr int kOwn = 1000;          ///< added to other error numbers of the system, to avoid collisions
/// The call failed half-way and could not be undone safely: the file is now at FileError::fileAt.
inline constexpr int kStranded = kOwn;
/// The source of a move was changed or replaced while it was copied: it was kept, and so was the copy at
/// FileError::fileAt.
inline constexpr int kBothKept = kOwn - 1;
/// Progress cancelled the move: the file is still at its old place.
inline constexpr int kCancelled = kOwn - 2;
}  // namespace file_error

struct FileError {
  int number = 0;           ///< one of file_error, or file_error::kOwn plus the system's own number
  std::string description;  ///< the system's error message, UTF-8
  std::string fileAt = {};  ///< where the file, or its copy, is now (kStranded, kBothKept); empty for other errors

  bool operator==(const FileError&) const = default;
};

/// The result of `Recycle` when the file is still there and no error was shown.
inline constexpr int kRecycleNotDone = 1026;

/// Empty on success.
using FileOutcome = std::optional<FileError>;

/// What a move to another volume lost, because the target volume cannot store it.
struct NotKept {
  bool times = false;
  bool accessRights = false;  ///< an access list was lost, or others now have more rights than before
  bool attributes = false;    ///< extended attributes

  [[nodiscard]] bool Any() const { return times || accessRights || attributes; }
  void Add(const NotKept& other) {
    times = times || other.times;
    accessRights = accessRights || other.accessRights;
    attributes = attributes || other.attributes;
  }

  bool operator==(const NotKept&) const = default;
};

/// A successful move, or the error.
using MoveOutcome = Result<NotKept, FileError>;

struct FolderEntry {
  std::string name;
  bool isFolder = false;  ///< also true for a link to a folder
  bool isLink = false;

  bool operator==(const FolderEntry&) const = default;
};

struct FileStatus {
  enum class Kind { kAbsent, kFile, kFolder, kOther };
  Kind kind = Kind::kAbsent;
  std::uint64_t length = 0;   ///< bytes; files only
  std::int64_t modified = 0;  ///< when it was last changed, in seconds since 1970-01-01 00:00 UTC; files only
};

/// Tells whether a file is still the one that was there before: a file keeps its identity when it is renamed or moved
/// within a volume. A new content changes size or time.
struct FileIdentity {
  std::uint64_t device = 0;   ///< the volume
  std::uint64_t file = 0;     ///< the file's number there
  std::uint64_t size = 0;     ///< bytes
  std::int64_t modified = 0;  ///< nanoseconds since 1970, as exactly as the volume keeps them

  bool operator==(const FileIdentity&) const = default;
};

/// The unit in which a volume limits the length of a name.
enum class NameUnit { kByte, kUtf16 };

/// The names in a folder in which each entry is found under its listed name alone.
struct ExactNames {
  /// Names of at most this length, in paths of at most this length, do not exist when they are not listed. Nothing is
  /// known of longer ones, nor of "." and "..".
  static constexpr std::size_t kLongestName = 255;
  static constexpr std::size_t kLongestPath = 4095;

  std::string files;   ///< of regular files, for which Status succeeds; each ended by a NUL
  std::string others;  ///< of everything else, dangling links and pipes included
};

/// Reads from the disk. Nothing here changes it.
class FileReads {
 public:
  virtual ~FileReads() = default;

  /// The folder's entries without "." and "..", sorted by name ignoring case (upper-case code points, then bytes).
  /// Entries that are neither file nor folder (pipes, sockets, devices) and links that lead nowhere are left out. A
  /// missing folder, or a path that is no folder, is unreachable (52).
  virtual Result<std::vector<FolderEntry>, FileError> ReadFolder(const std::string& folder) = 0;

  /// For a search. With `subfolders`, every listed folder's subfolders are going to be read, too. This object must
  /// outlive the listings.
  [[nodiscard]] virtual std::unique_ptr<FolderListings> ListFolders(bool subfolders);

  /// The folder's path with all links resolved, without a trailing separator except for a root; empty when the folder
  /// cannot be reached.
  virtual std::string RealPath(const std::string& folder) = 0;

  /// Opens a regular file for reading, with sharing, so that other programs can still use it; null when that fails. A
  /// file whose contents are not on this computer, but would be fetched from a network when it is read (a placeholder
  /// of a cloud drive on Windows), is not opened.
  virtual std::unique_ptr<ByteSource> OpenFile(const std::string& path) = 0;

  /// The kind of entry at this path, links followed; kOther for a dangling link. A missing file is kAbsent, not an
  /// error. Errors are a path that is invalid on this system (53) and one that may not be accessed (75).
  virtual Result<FileStatus, FileError> Status(const std::string& path) = 0;

  /// Reads the files of this list one after another. The list and this object must outlive the reading.
  [[nodiscard]] virtual std::unique_ptr<FilesInTurn> ReadInTurn(const PathList& list, const NeedsOf& needs);

  /// True when a file exists at this path and may be accessed.
  [[nodiscard]] bool IsFile(const std::string& path) {
    const Result<FileStatus, FileError> status = Status(path);
    return status && status->kind == FileStatus::Kind::kFile;
  }

  /// Every name in the folder, in no order, from which is known what Status would answer for each of its files. Null
  /// when the folder cannot be listed or searched, and unless it is certain that no entry has further names there (in
  /// another letter case, in another form of the same characters, or hidden).
  virtual std::optional<ExactNames> ExactNamesIn(const std::string& /*folder*/) { return std::nullopt; }

  /// True when both paths name the same existing file.
  virtual bool SameFile(const std::string& left, const std::string& right) = 0;

  /// The identity of the entry at this path; a link's own, not its target's. Errors are those of the system: an absent
  /// entry is kNotFound.
  virtual Result<FileIdentity, FileError> Identity(const std::string& path) = 0;

  /// The unit in which this folder's volume limits the length of a name. kUtf16 when that is unknown on Linux: a name
  /// that is too long in UTF-16 units is also too long in bytes.
  virtual NameUnit NameUnitOf(const std::string& folder) = 0;
};

/// Changes the disk. Each call succeeds completely or changes nothing; no call ever replaces an existing file.
class FileChanges {
 public:
  virtual ~FileChanges() = default;

  /// Renames within one folder. A rename to the file's current name succeeds and changes nothing; one that only changes
  /// letter case also works on file systems that ignore case. Two hard links are two files. On Windows dots and blanks
  /// at the end of the new name are dropped, as usual there.
  virtual FileOutcome Rename(const std::string& from, const std::string& to) = 0;

  /// Moves a file to the given full path. Between volumes it copies, flushes, publishes the copy without replacing
  /// anything, and then deletes the source if it is still the file that was copied, unchanged (else kBothKept). Times,
  /// permissions and extended attributes are kept as far as the target volume supports them. A link is moved, not its
  /// target. A folder is not moved to another volume. `progress` may be null; it is only called while a file is copied,
  /// and when it cancels, the copy is deleted (kCancelled).
  virtual MoveOutcome Move(const std::string& from, const std::string& to, Progress* progress) = 0;
  MoveOutcome Move(const std::string& from, const std::string& to) { return Move(from, to, nullptr); }

  /// Deletes temporary files that killed moves into this folder left behind: files with this program's mark that are
  /// older than a day and belong to no running move. Never fails: files that cannot be deleted stay until the next
  /// call.
  virtual void RemoveLeftovers(const std::string& folder) = 0;

  /// Deletes permanently. Never a folder (75). A link is deleted, not its target.
  virtual FileOutcome Remove(const std::string& path) = 0;

  /// Moves the file to the desktop's recycle bin. The system may show its confirmation over `ownerWindow` (the native
  /// window handle, 0 for none). Returns 0 when the system reported success; the system's error number when it failed
  /// and has shown the error itself; kRecycleNotDone when it failed and showed nothing (Linux). Never deletes
  /// permanently instead.
  virtual int Recycle(const std::string& path, std::uintptr_t ownerWindow) = 0;

  /// False where the desktop recycles without confirmation (Linux): then the caller asks.
  [[nodiscard]] virtual bool RecycleAsks() const { return true; }
};

struct FileReadsOptions {
  /// ReadInTurn reads files before their turn, and ListFolders lists folders, on threads of their own.
  bool readAhead = true;
};

/// The implementations for this system. They are stateless and may be made any number of times.
[[nodiscard]] std::unique_ptr<FileReads> MakeFileReads(const FileReadsOptions& options = {});
[[nodiscard]] std::unique_ptr<FileChanges> MakeFileChanges();

/// Opens one regular file on the real file system, also one whose contents must be fetched: somebody asks for this one.
[[nodiscard]] std::unique_ptr<ByteSource> OpenSystemFile(const std::string& path);

/// Makes `path` a full path: relative ones start at the current folder; "." and doubled separators are dropped, ".." is
/// resolved through the real folder (on Windows as text, as the system does). The path need not exist. Links in the
/// path and a trailing separator are kept. An empty path stays empty.
[[nodiscard]] std::string FullPath(const std::string& path);

/// On Windows: the full path without the prefix for literal paths ("\\?\"), with short names (8.3) replaced by long
/// ones as far as the path exists. On Linux the path unchanged.
[[nodiscard]] std::string LongPath(const std::string& fullPath);

/// The folder in which the desktop keeps this user's deleted files, with a trailing separator; empty where no such
/// folder has a path (Windows).
[[nodiscard]] std::string UserTrashFolder();

}  // namespace quillon
