#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillon::test {

/// Takes an input apart, front to back. Behind its end there are zeros and empty texts.
class Parts {
 public:
  Parts(const std::uint8_t* data, std::size_t size) : bytes_(data, data + size), rest_(bytes_) {}
  Parts(const Parts&) = delete;
  Parts& operator=(const Parts&) = delete;

  unsigned Byte() {
    const std::string_view byte = Take(1);
    return byte.empty() ? 0 : static_cast<unsigned char>(byte.front());
  }

  /// A text behind a byte that gives its length.
  std::string Text() { return std::string(Take(Byte())); }

  std::string Rest() { return std::string(Take(rest_.size())); }

 private:
  std::string_view Take(std::size_t count) {
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    return taken;
  }

  std::string bytes_;
  std::string_view rest_;
};

}  // namespace quillon::test
