#pragma once

#include <gio/gio.h>

#include <string>

namespace quillon::test {

/// A private session bus, which ends with the object or with this process.
class PrivateBus {
 public:
  PrivateBus();
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;
  ~PrivateBus();

  /// Empty when the bus program is not installed.
  [[nodiscard]] const std::string& Address() const { return address_; }

 private:
  GSubprocess* daemon_ = nullptr;
  std::string address_;
};

}  // namespace quillon::test
