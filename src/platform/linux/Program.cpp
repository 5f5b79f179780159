#include "platform/Program.h"

#include <csignal>
#include <cstdlib>
#include <memory>

namespace quillon {
namespace {

std::string ExecutablePath() {
  const std::unique_ptr<char, decltype(&std::free)> path(::realpath("/proc/self/exe", nullptr), &std::free);
  return path ? std::string(path.get()) : std::string("/");
}

// A signal handler can reach nothing but a variable of static storage.
volatile std::sig_atomic_t interrupted = 0;

void NoteInterruption(int) {
  interrupted = 1;
}

}  // namespace

std::string ProgramFolder() {
  const std::string path = ExecutablePath();
  return path.substr(0, path.rfind('/') + 1);
}

std::string ProgramBaseName() {
  const std::string path = ExecutablePath();
  return path.substr(path.rfind('/') + 1);
}

std::vector<std::string> ProgramArguments(int argc, char** argv) {
  return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

void CatchInterruption() {
  struct sigaction action = {};
  action.sa_handler = NoteInterruption;
  // Without SA_RESTART, so that waiting for input ends, too.
  ::sigaction(SIGINT, &action, nullptr);
}

bool Interrupted() {
  return interrupted != 0;
}

}  // namespace quillon
