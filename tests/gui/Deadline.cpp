#include "gui/Deadline.h"

#include <cstdio>
#include <cstdlib>

namespace quillon::test {

Deadline::Deadline(std::chrono::milliseconds limit) : limit_(limit), watcher_([this] { Watch(); }) {}

Deadline::~Deadline() {
  {
    const std::lock_guard lock(mutex_);
    over_ = true;
  }
  told_.notify_one();
  watcher_.join();
}

void Deadline::OnTestStart(const testing::TestInfo& test) {
  Tell(std::string(test.test_suite_name()) + "." + test.name());
}

void Deadline::OnTestEnd(const testing::TestInfo& /*test*/) {
  Tell("");
}

void Deadline::Tell(const std::string& test) {
  {
    const std::lock_guard lock(mutex_);
    test_ = test;
    ++number_;
  }
  told_.notify_one();
}

void Deadline::Watch() {
  std::unique_lock lock(mutex_);
  while (!over_) {
    const int number = number_;
    const auto another = [&] { return over_ || number_ != number; };
    if (test_.empty()) {
      told_.wait(lock, another);
    } else if (!told_.wait_for(lock, limit_, another)) {
      std::printf("[  FAILED  ] %s: not over after %lld seconds; the tests behind it are not run\n", test_.c_str(),
                  static_cast<long long>(std::chrono::duration_cast<std::chrono::seconds>(limit_).count()));
      (void)std::fflush(stdout);
      std::_Exit(EXIT_FAILURE);
    }
  }
}

}  // namespace quillon::test
