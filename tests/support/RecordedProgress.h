#pragma once

#include <string>

#include "base/Progress.h"
#include "support/Recorders.h"

namespace quillon::test {

/// Lets a test act while a loop runs, and end it: each question counts as one look at pending messages.
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
