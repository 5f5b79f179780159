#pragma once

#include <optional>
#include <vector>

namespace quillon::test {

/// A system call that is going to fail.
struct FailingCall {
  long number = 0;  ///< of the system call: SYS_renameat2
  int error = 0;    ///< the errno that it gives

  /// Only where this argument, counted from 0, has this value.
  struct Where {
    unsigned argument = 0;
    unsigned value = 0;
  };
  std::optional<Where> where = std::nullopt;
};

inline constexpr const char* kNoFailingCalls = "system calls cannot be made to fail here";

/// Makes these calls of this process fail from now on, without being made, until it ends. Returns false where that is
/// not possible. Meant for a child process.
[[nodiscard]] bool MakeFail(const std::vector<FailingCall>& calls);

/// The calls behind functions of the C library, which differ between processors.
[[nodiscard]] std::vector<FailingCall> FailingFstat(int error);
[[nodiscard]] std::vector<FailingCall> FailingLink(int error);
[[nodiscard]] std::vector<FailingCall> FailingRename(int error);

}  // namespace quillon::test
