#pragma once

namespace quillon {

/// Keeps writers out of a file while the object exists, where the volume supports that: a program that opens the file
/// for writing has to wait (the system ends the lease after about 45 seconds).
class WriteLease {
 public:
  /// `file` is open for reading only.
  explicit WriteLease(int file);
  WriteLease(const WriteLease&) = delete;
  WriteLease& operator=(const WriteLease&) = delete;
  ~WriteLease();

  /// True when the file is open or mapped for writing. Always false on network volumes and for files of other users,
  /// where that is unknown.
  [[nodiscard]] bool Refused() const { return refused_; }

 private:
  int file_;
  bool held_ = false;
  bool refused_ = false;
};

}  // namespace quillon
