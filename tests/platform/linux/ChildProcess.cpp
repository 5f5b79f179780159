#include "platform/linux/ChildProcess.h"

#include <fcntl.h>
#include <grp.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

// In a build that counts which lines are run, writes the counts, which normally happens at the end of main.
extern "C" [[gnu::weak]] int __llvm_profile_write_file();

namespace quillon::test {
namespace {

[[noreturn]] void EndChild(int result) {
  if (__llvm_profile_write_file != nullptr) {
    rlimit largestFile = {};
    if (::getrlimit(RLIMIT_FSIZE, &largestFile) == 0) {
      largestFile.rlim_cur = largestFile.rlim_max;
      static_cast<void>(::setrlimit(RLIMIT_FSIZE, &largestFile));
    }
    __llvm_profile_write_file();
  }
  ::_exit(result);
}

}  // namespace

int RunInChild(const std::function<int()>& work) {
  const pid_t child = ::fork();
  if (child == 0) EndChild(work());
  int status = 0;
  if (child < 0 || ::waitpid(child, &status, 0) != child || !WIFEXITED(status)) return kDied;
  return WEXITSTATUS(status);
}

int RunAsOrdinaryUser(const std::function<int()>& work) {
  constexpr uid_t kNobody = 65534;
  return RunInChild([&] {
    if (::geteuid() == 0) {
      const bool changed = ::setgroups(0, nullptr) == 0 && ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0;
      if (!changed) return kCannotSetUp;
    }
    return work();
  });
}

int RunProgram(const std::vector<std::string>& words) {
  std::vector<std::string> copies = words;
  std::vector<char*> arguments;
  arguments.reserve(copies.size() + 1);
  for (std::string& word : copies) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  return RunInChild([&] {
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    ::dup2(nowhere, STDOUT_FILENO);
    ::dup2(nowhere, STDERR_FILENO);
    ::execvp(arguments.front(), arguments.data());
    return kCannotSetUp;
  });
}

bool RunTool(const std::vector<std::string>& words) {
  return RunProgram(words) == 0;
}

bool MountPrivately(const char* kind, const std::string& source, const std::string& folder, const char* options) {
  return ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
         ::mount(source.c_str(), folder.c_str(), kind, 0, options) == 0;
}

}  // namespace quillon::test
