#pragma once

#include <utility>

namespace quillon {

/// Does something when its scope is left, also by an exception: what was changed for a while is put back. What the
/// action itself throws is dropped.
template <class Action>
class [[nodiscard]] Finally {
 public:
  explicit Finally(Action action) : action_(std::move(action)) {}
  Finally(const Finally&) = delete;
  Finally& operator=(const Finally&) = delete;
  ~Finally() {
    try {
      action_();
    } catch (...) {  // NOLINT(bugprone-empty-catch): there is nobody to take it
    }
  }

 private:
  Action action_;
};

}  // namespace quillon
