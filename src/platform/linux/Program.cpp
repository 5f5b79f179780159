#include "platform/Program.h"

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <string_view>

#include "base/Text.h"
#include "platform/linux/EndingSignals.h"

namespace quillon {
namespace {

std::string ExecutablePath() {
  const std::unique_ptr<char, decltype(&std::free)> path(::realpath("/proc/self/exe", nullptr), &std::free);
  return path ? std::string(path.get()) : std::string("/");
}

// A signal handler can only access static variables.
volatile std::sig_atomic_t interrupted = 0;

void NoteInterruption(int) {
  interrupted = 1;
}

/// Each argument ends with a NUL; the first one is the program.
std::vector<std::string> ProcessArguments() {
  std::ifstream file("/proc/self/cmdline", std::ios::binary);  // its reported size is 0
  const std::string all{std::istreambuf_iterator<char>(file), {}};
  std::vector<std::string> arguments;
  for (const std::string_view argument : Split(all, '\0')) arguments.emplace_back(argument);
  if (!arguments.empty()) arguments.pop_back();
  if (!arguments.empty()) arguments.erase(arguments.begin());
  return arguments;
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

// The dynamic linker only searches the current folder if LD_LIBRARY_PATH says so, and it reads that before main().
void KeepToOwnAndSystemLibraries() {}

bool UserReadsJapanese() {
  for (const char* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* const value = std::getenv(variable);
    if (value == nullptr || *value == '\0') continue;
    const std::string_view locale = value;
    return locale == "ja" || locale.starts_with("ja_") || locale.starts_with("ja.");
  }
  return false;
}

std::vector<std::string> ProgramArguments(int argc, char** argv) {
  if (argv == nullptr) return ProcessArguments();
  return argc > 1 ? std::vector<std::string>(argv + 1, argv + argc) : std::vector<std::string>();
}

std::optional<std::string> RawCommandLine() {
  return std::nullopt;
}

void CatchInterruption() {
  struct sigaction action = {};
  action.sa_handler = NoteInterruption;
  // Without SA_RESTART, so that the signal also interrupts waiting for input.
  ::sigaction(SIGINT, &action, nullptr);
  for (const int signal : EndingSignals()) ::sigaction(signal, &action, nullptr);
}

bool Interrupted() {
  return interrupted != 0;
}

}  // namespace quillon
