#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "base/Throttle.h"
#include "filelist/FileItem.h"
#include "filelist/WindowPorts.h"
#include "platform/FileSystem.h"

namespace quillon {

/// When and how often a move shows how far it is.
struct MoveTimes {
  std::chrono::milliseconds showAfter{500};  ///< quick moves show nothing
  std::chrono::milliseconds interval = kProgressInterval;
};

/// How far a move of one or more files is, in bytes, shown in the wait window once it lasts; the other windows take no
/// input from then on. The user may cancel it, between two files and while one is copied.
class MoveProgress final : public CopyProgress {
 public:
  /// `total` is the sum of SizeOf(row) over the rows that are to be moved.
  MoveProgress(ProgressDisplay& display, WindowState& window, std::uint64_t total, MoveTimes times = MoveTimes());
  MoveProgress(const MoveProgress&) = delete;
  MoveProgress& operator=(const MoveProgress&) = delete;
  ~MoveProgress() override;

  /// A row's share of the total: its bytes, and something for the file itself.
  [[nodiscard]] static std::uint64_t SizeOf(const FileItem& row) { return row.size + 1; }

  /// The next row is going to be moved. False when the user has cancelled.
  [[nodiscard]] bool Next(const FileItem& row);

  bool Continue(std::uint64_t copied) override;

 private:
  using Clock = std::chrono::steady_clock;

  bool Show(std::uint64_t copied);

  ProgressDisplay& display_;
  WindowState& window_;
  std::uint64_t total_;
  Clock::time_point showAt_;
  Throttle throttle_;
  bool shown_ = false;
  std::uint64_t done_ = 0;     ///< the files before the present one
  std::uint64_t present_ = 0;  ///< the size of the file that is being moved
  std::string path_;
};

}  // namespace quillon
