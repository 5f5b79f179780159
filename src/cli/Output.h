#pragma once

#include <string>
#include <string_view>

namespace quillon::cli {

/// Standard output, gathered and written in large pieces; what is left is written at the end of the object's life. Once
/// the other end is closed everything more is dropped quietly; any other failure is complained of once.
class Output {
 public:
  Output() = default;
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;
  ~Output() { Flush(); }

  void Line(std::string_view text);

  /// Writes what is left. False when something could not be written, now or before.
  bool Flush();

  /// True when nothing can be written any more.
  [[nodiscard]] bool Closed() const { return closed_; }

 private:
  std::string buffer_;
  bool closed_ = false;
};

/// One line on standard error.
void Complain(std::string_view text);

}  // namespace quillon::cli
