#pragma once

#include <unistd.h>

#include <utility>

namespace quillon {

/// An open file descriptor, closed with the object.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&&) = delete;
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }

  [[nodiscard]] bool Open() const { return number_ >= 0; }
  [[nodiscard]] int Number() const { return number_; }

  /// Closes the file; false, with errno set, when the system reports lost data.
  [[nodiscard]] bool Close() { return ::close(std::exchange(number_, -1)) == 0; }

 private:
  int number_;
};

}  // namespace quillon
