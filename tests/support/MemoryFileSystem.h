#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/PathStyle.h"

namespace quillon::test {

/// The calls that a MemoryFileSystem logs.
enum class FileCall {
  kReadFolder,
  kRealPath,
  kOpenFile,
  kStatus,
  kSameFile,
  kIdentity,
  kRename,
  kMove,
  kRemoveLeftovers,
  kRemove,
  kRecycle
};

/// Files and folders in memory that fulfil the contracts of FileReads and FileChanges, with errors on demand and a log.
/// Paths are full paths in the given style. A drive ("C:") is a folder under the root.
class MemoryFileSystem : public FileReads, public FileChanges {
 public:
  struct Options {
    PathStyle style = SystemPathStyle();
    bool ignoreCase = style == PathStyle::kWindows;
  };

  struct LoggedCall {
    FileCall call = FileCall::kStatus;
    std::string path;
    std::string to;  ///< the target of a rename or a move

    bool operator==(const LoggedCall&) const = default;
  };

  MemoryFileSystem();
  explicit MemoryFileSystem(Options options);
  ~MemoryFileSystem() override;

  // Setting up. Missing folders are created; an existing entry at the path is replaced. Nothing here is logged.
  void AddFile(const std::string& path, std::string_view bytes = "");
  void AddFolder(const std::string& path);
  /// A link that leads to `target`, a full path that need not exist.
  void AddLink(const std::string& path, const std::string& target);
  /// An entry that is neither file nor folder.
  void AddPipe(const std::string& path);
  /// A second name for an existing file.
  void AddHardLink(const std::string& path, const std::string& existing);
  /// Gives an existing file the hidden attribute.
  void Hide(const std::string& path);

  // The current state of the disk. Not logged, and not affected by Fail.
  [[nodiscard]] bool Exists(const std::string& path) const;
  /// The bytes of an existing file.
  [[nodiscard]] std::string BytesOf(const std::string& path) const;
  /// The names of an existing folder's entries, in their stored spelling.
  [[nodiscard]] std::vector<std::string> NamesIn(const std::string& folder) const;

  /// From now on this call fails for this path (for a rename or move: the source). Calls that cannot return an error
  /// return an empty result; Recycle returns the error's number and does nothing.
  void Fail(FileCall call, const std::string& path, FileError error);
  /// The next recycling is declined: it reports success and the file stays.
  void DeclineRecycling() { declineRecycling_ = true; }
  /// The paths of the files that went to the recycle bin.
  [[nodiscard]] const std::vector<std::string>& Recycled() const { return recycled_; }

  [[nodiscard]] const std::vector<LoggedCall>& Calls() const { return calls_; }
  [[nodiscard]] std::size_t CountOf(FileCall call) const;

  Result<std::vector<FolderEntry>, FileError> ReadFolder(const std::string& folder) override;
  std::string RealPath(const std::string& folder) override;
  std::unique_ptr<ByteSource> OpenFile(const std::string& path) override;
  Result<FileStatus, FileError> Status(const std::string& path) override;
  bool SameFile(const std::string& left, const std::string& right) override;
  /// The time is always the same.
  Result<FileIdentity, FileError> Identity(const std::string& path) override;
  NameUnit NameUnitOf(const std::string& /*folder*/) override { return nameUnit; }

  FileOutcome Rename(const std::string& from, const std::string& to) override;
  using FileChanges::Move;
  MoveOutcome Move(const std::string& from, const std::string& to, Progress* progress) override;
  void RemoveLeftovers(const std::string& folder) override;
  FileOutcome Remove(const std::string& path) override;
  int Recycle(const std::string& path, std::uintptr_t ownerWindow) override;
  [[nodiscard]] bool RecycleAsks() const override { return recycleAsks; }

  bool recycleAsks = true;
  NameUnit nameUnit;              ///< initially that of the style
  NotKept notKept;                ///< the result of successful moves
  std::int64_t modified = 0;      ///< when every file was last changed
  std::string secondDevice = {};  ///< paths that begin with this are on a device of their own; empty for none
  /// If not zero, every move copies to another volume in pieces of this many bytes.
  std::uint64_t copiesPieces = 0;

 private:
  struct Node;
  struct Entry;
  class Entries;
  using NodePointer = std::shared_ptr<Node>;
  struct Place;

  [[nodiscard]] std::string Key(std::string_view name) const;
  [[nodiscard]] bool CanHold(std::string_view name) const;
  [[nodiscard]] std::string StoredName(std::string_view name) const;
  [[nodiscard]] std::vector<std::string_view> Pieces(std::string_view path) const;
  [[nodiscard]] NodePointer Walk(std::string_view path, bool followLast, int depth = 0) const;
  [[nodiscard]] Place PlaceOf(std::string_view path) const;
  NodePointer MakeFolders(std::string_view folder);
  NodePointer Put(const std::string& path, Node node);
  FileOutcome Log(FileCall call, const std::string& path, const std::string& to = {});
  FileOutcome ChangeName(const std::string& from, const std::string& to);
  [[nodiscard]] FileOutcome CheckNames(const std::string& from, const std::string& to) const;

  Options options_;
  NodePointer root_;
  std::map<std::pair<FileCall, std::string>, FileError> failures_;
  std::vector<LoggedCall> calls_;
  std::vector<std::string> recycled_;
  bool declineRecycling_ = false;
  std::uint64_t lastNumber_ = 0;
};

}  // namespace quillon::test
