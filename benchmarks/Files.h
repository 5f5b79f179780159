#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quillon::benchmarks {

/// The number in the first file's name; a file's title has the number without it.
inline constexpr int kFirstNumber = 100000;

/// A folder of small media files, a thousand per subfolder, removed by the destructor.
class Files {
 public:
  enum class Kind {
    kMixed,  ///< alternating MIDI and MP3
    kMidi,
    kMp3,       ///< with tags that the program's own readers know
    kNewerMp3,  ///< with ID3v2.4
    kFlac,
    kM4a,
    kOgg,
  };

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

/// Shared by all benchmarks that need the same files; made at the first use.
[[nodiscard]] Files& SharedFiles(Files::Kind kind, int count);

/// Only the system calls of a load: reads the folders' entries and, for each file, its length, its first block, and
/// what else its kind needs. Returns the number of files read. `read`, which may be empty, is told each file's path and
/// length.
using FileRead = std::function<void(const std::string& path, std::uint64_t length)>;
[[nodiscard]] int ReadWithSystemCalls(const std::string& folder, const FileRead& read = {});

/// Calls renameat2 without replacing for each pair; returns the number of successes.
[[nodiscard]] int RenameWithSystemCalls(const std::vector<std::string>& from, const std::vector<std::string>& to);

}  // namespace quillon::benchmarks
