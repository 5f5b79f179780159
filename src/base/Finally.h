#pragma once

#include <utility>

namespace quillon {

/// Runs an action when the scope is left, also by an exception, to undo a temporary change. Exceptions from the action
/// itself are dropped.
template <class Action>
class [[nodiscard]] Finally {
 public:
  explicit Finally(Action action) : action_(std::move(action)) {}
  Finally(const Finally&) = delete;
  Finally& operator=(const Finally&) = delete;
  ~Finally() {
    try {
      action_();
    } catch (...) {  // NOLINT(bugprone-empty-catch): a destructor must not throw
    }
  }

 private:
  Action action_;
};

}  // namespace quillon
