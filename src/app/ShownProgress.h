#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "base/Ports.h"
#include "base/Progress.h"
#include "base/Throttle.h"
#include "filelist/WindowPorts.h"

namespace quillon {

/// "50% 完了しました"
[[nodiscard]] std::string PercentText(int percent);

/// Processes messages between the items of a loop and shows its progress in percent.
class ShownProgress final : public Progress {
 public:
  struct Look {
    std::string indent = {};  ///< in front of the percentage
    bool showsStart = false;  ///< show 0 % before the first item
    bool showsItem = false;   ///< show the path of the item just done
  };
  using Cancelled = std::function<bool()>;

  ShownProgress(PendingMessages& pending, ProgressDisplay& display, Look look, Cancelled cancelled,
                std::chrono::milliseconds interval = kProgressInterval);

  bool Continue(std::size_t done, std::size_t total, const std::string& item) override;
  bool Continue() override;

 private:
  PendingMessages& pending_;
  ProgressDisplay& display_;
  Look look_;
  Cancelled cancelled_;
  Throttle throttle_;
};

}  // namespace quillon
