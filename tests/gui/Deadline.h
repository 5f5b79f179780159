#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace quillon::test {

/// Ends the whole program when a test lasts too long: a test that hangs in the program's event loop would never return,
/// and no other test would run.
class Deadline final : public testing::EmptyTestEventListener {
 public:
  explicit Deadline(std::chrono::milliseconds limit);
  ~Deadline() override;
  Deadline(const Deadline&) = delete;
  Deadline& operator=(const Deadline&) = delete;

  void OnTestStart(const testing::TestInfo& test) override;
  void OnTestEnd(const testing::TestInfo& test) override;

 private:
  void Watch();
  void Tell(const std::string& test);

  const std::chrono::milliseconds limit_;
  std::mutex mutex_;
  std::condition_variable told_;
  std::string test_;  // empty between tests
  int number_ = 0;    // of the test
  bool over_ = false;
  std::thread watcher_;
};

}  // namespace quillon::test
