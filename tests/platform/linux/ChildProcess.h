#pragma once

#include <functional>
#include <string>
#include <vector>

namespace quillon::test {

/// The result of RunInChild for a child that did not exit normally.
inline constexpr int kDied = -1;
/// A child's result when its setup fails.
inline constexpr int kCannotSetUp = 100;

/// Runs `work` in a child process, so that its changes to the process (limits, user, environment, streams) do not
/// affect this one. Returns the result of `work`, 0 to 125.
[[nodiscard]] int RunInChild(const std::function<int()>& work);

/// The same as an ordinary user, to whom permissions apply.
[[nodiscard]] int RunAsOrdinaryUser(const std::function<int()>& work);

/// Runs a program, discarding its output. Returns its exit code; kCannotSetUp when it is missing.
[[nodiscard]] int RunProgram(const std::vector<std::string>& words);

/// The same for a system tool. Returns false when it is missing or fails.
[[nodiscard]] bool RunTool(const std::vector<std::string>& words);

/// Mounts a volume over a folder, visible only to this process and its children. Returns false where that is not
/// allowed.
[[nodiscard]] bool MountPrivately(const char* kind, const std::string& source, const std::string& folder,
                                  const char* options);

}  // namespace quillon::test
