#pragma once

#include <string>
#include <vector>

namespace quillon::benchmarks {

/// A folder of small media files, a thousand in each subfolder, removed at the end of the object's life.
class Files {
 public:
  enum class Kind { kMixed, kMp3 };  ///< MIDI and MP3 in turns, or MP3 alone

  Files(Kind kind, int count);
  Files(const Files&) = delete;
  Files& operator=(const Files&) = delete;
  ~Files();

  [[nodiscard]] const std::string& Folder() const { return folder_; }
  [[nodiscard]] int Count() const { return static_cast<int>(paths_.size()); }
  [[nodiscard]] const std::vector<std::string>& Paths() const { return paths_; }

 private:
  std::string folder_;
  std::vector<std::string> paths_;
};

/// The same files for every benchmark that asks for the same ones; made at the first use.
[[nodiscard]] Files& SharedFiles(Files::Kind kind, int count);

/// The system calls of a load, and nothing else: the folders' entries; of each file its length, its first block, and
/// what its kind needs besides. Returns how many files were read.
[[nodiscard]] int ReadWithSystemCalls(const std::string& folder);

/// renameat2 without replacing for each pair; returns how many succeeded.
[[nodiscard]] int RenameWithSystemCalls(const std::vector<std::string>& from, const std::vector<std::string>& to);

}  // namespace quillon::benchmarks
