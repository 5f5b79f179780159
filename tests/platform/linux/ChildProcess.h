#pragma once

#include <functional>
#include <string>
#include <vector>

namespace quillon::test {

/// What RunInChild returns for a child that did not return.
inline constexpr int kDied = -1;
/// What a child returns when it cannot set up what it needs.
inline constexpr int kCannotSetUp = 100;

/// Runs `work` in a process of its own, so that what it does to the process (limits, user, environment, streams) stays
/// there. Returns what it returned, 0 to 125.
[[nodiscard]] int RunInChild(const std::function<int()>& work);

/// The same as an ordinary user, for whom permissions count.
[[nodiscard]] int RunAsOrdinaryUser(const std::function<int()>& work);

/// Runs a program, its output dropped. Its exit code; kCannotSetUp when it is missing.
[[nodiscard]] int RunProgram(const std::vector<std::string>& words);

/// The same for a program of the system. False when it is missing or fails.
[[nodiscard]] bool RunTool(const std::vector<std::string>& words);

/// Mounts a volume over a folder for this process and its children alone. False where that is not allowed.
[[nodiscard]] bool MountPrivately(const char* kind, const std::string& source, const std::string& folder,
                                  const char* options);

}  // namespace quillon::test
