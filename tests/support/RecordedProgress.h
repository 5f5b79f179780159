#pragma once

#include <string>

#include "base/Progress.h"
#include "support/Recorders.h"

namespace quillon::test {

/// Lets a test act during a loop, and end it. Each call counts as one processing of pending messages.
class RecordedProgress final : public Progress {
 public:
  explicit RecordedProgress(PendingRecorder& pending) : pending_(pending) {}

  bool Continue(std::size_t, std::size_t, const std::string& item) override {
    items.push_back(item);
    return !cancelled;
  }
  bool Continue() override {
    pending_.Process();
    return !cancelled;
  }

  bool cancelled = false;
  std::vector<std::string> items;

 private:
  PendingRecorder& pending_;
};

}  // namespace quillon::test
