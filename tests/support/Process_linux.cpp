#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/Process.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

int Open(const std::string& path, int flags) {
  const int file = open(path.c_str(), flags | O_CLOEXEC, 0600);
  EXPECT_GE(file, 0) << path;
  return file;
}

}  // namespace

ProcessResult RunProcess(const std::string& program, const std::vector<std::string>& arguments,
                         std::string_view input) {
  const TempFolder folder;
  const int in = Open(folder.Write("in", input), O_RDONLY);
  const int out = Open(folder.At("out"), O_WRONLY | O_CREAT);
  const int err = Open(folder.At("err"), O_WRONLY | O_CREAT);
  std::vector<std::string> words = {program};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  pointers.reserve(words.size() + 1);
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    dup2(in, STDIN_FILENO);
    dup2(out, STDOUT_FILENO);
    dup2(err, STDERR_FILENO);
    execv(program.c_str(), pointers.data());
    _exit(127);
  }
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  for (const int file : {in, out, err}) close(file);
  const int exitCode = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
  return {exitCode, folder.Read("out"), folder.Read("err")};
}

}  // namespace quillon::test
