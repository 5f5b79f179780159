#pragma once

#include <atomic>
#include <condition_variable>
#include <mutex>

namespace quillon {

/// Threads that wait until something is true. Waking costs one load while nobody waits.
///
/// std::atomic::wait() does the same, but not reliably: where the system has no futex, as on Windows, GCC's library
/// loses a notification that comes between its last look at the value and its wait (seen in GCC 12).
class WaitingThreads {
 public:
  /// `isTrue` reads atomic variables, with std::memory_order_seq_cst.
  template <class Condition>
  void WaitUntil(const Condition& isTrue) {
    std::unique_lock lock(mutex_);
    ++waiting_;
    changed_.wait(lock, isTrue);
    --waiting_;
  }

  /// After a variable of the condition was set, with std::memory_order_seq_cst: then either the one that waits sees the
  /// new value, or this sees that it waits.
  void Wake() {
    if (waiting_ == 0) return;
    { const std::lock_guard lock(mutex_); }  // one that has seen the old value waits by now
    changed_.notify_all();
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::atomic<int> waiting_ = 0;
};

}  // namespace quillon
