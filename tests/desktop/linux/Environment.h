#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace quillon::test {

/// Sets or unsets an environment variable until the end of the scope.
class ScopedVariable {
 public:
  ScopedVariable(std::string name, const std::optional<std::string>& value) : name_(std::move(name)) {
    if (const char* const before = std::getenv(name_.c_str())) before_ = before;
    Set(value);
  }
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;
  ~ScopedVariable() { Set(before_); }

 private:
  void Set(const std::optional<std::string>& value) {
    if (value) {
      setenv(name_.c_str(), value->c_str(), 1);
    } else {
      unsetenv(name_.c_str());
    }
  }

  std::string name_;
  std::optional<std::string> before_;
};

}  // namespace quillon::test
