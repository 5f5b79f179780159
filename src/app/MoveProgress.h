#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "base/Throttle.h"
#include "filelist/FileItem.h"
#include "filelist/WindowPorts.h"
#include "platform/FileSystem.h"

namespace quillon {

/// When and how often a move shows its progress.
struct MoveTimes {
  std::chrono::milliseconds showAfter{500};  ///< quick moves show nothing
  std::chrono::milliseconds interval = kProgressInterval;
};

/// The progress, in bytes, of a move of one or more files. A move that takes long shows it in the wait window; from
/// then on the other windows accept no input. The user can cancel between two files and while one is copied.
class MoveProgress final : public Progress {
 public:
  /// `total` is the sum of SizeOf(row) over the rows that are to be moved.
  MoveProgress(ProgressDisplay& display, WindowState& window, std::uint64_t total, MoveTimes times = MoveTimes());
  MoveProgress(const MoveProgress&) = delete;
  MoveProgress& operator=(const MoveProgress&) = delete;
  ~MoveProgress() override;

  /// A row's share of the total: its bytes, plus 1 for the file itself.
  [[nodiscard]] static std::uint64_t SizeOf(const FileRow& row) { return row.size + 1; }

  /// Call it before moving the next row. Returns false when the user has cancelled.
  [[nodiscard]] bool Next(const FileRow& row);

  /// Bytes of the current file; `item` is not used.
  bool Continue(std::size_t copied, std::size_t total, const std::string& item) override;
  bool Continue() override { return !display_.Cancelled(); }

 private:
  using Clock = std::chrono::steady_clock;

  bool Show(std::uint64_t copied);

  ProgressDisplay& display_;
  WindowState& window_;
  std::uint64_t total_;
  Clock::time_point showAt_;
  Throttle throttle_;
  bool shown_ = false;
  std::uint64_t done_ = 0;     ///< the total size of the files before the current one
  std::uint64_t present_ = 0;  ///< the size of the current file
  std::string path_;
};

}  // namespace quillon
