#include "platform/linux/Trace.h"

#include <charconv>
#include <fstream>
#include <map>

#include "platform/linux/ChildProcess.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

// "?" means optional: not every processor has the call.
constexpr const char* kCalls =
    "trace=openat,write,pread64,fsync,?fdatasync,close,?rename,?renameat,renameat2,?unlink,unlinkat,fchmod,fchown,?"
    "stat,"
    "?fstat,?newfstatat,?fstatat64,?statx";

std::vector<TracedCall> CallsIn(const std::string& file) {
  std::vector<TracedCall> calls;
  std::map<std::string, int> occurrences;
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t bracket = line.find('(');
    const std::size_t equals = line.rfind(" = ");
    if (bracket == std::string::npos || equals == std::string::npos) continue;
    TracedCall call;
    call.name = line.substr(0, bracket);
    call.line = line;
    std::from_chars(line.data() + equals + 3, line.data() + line.size(), call.result);
    call.occurrence = ++occurrences[call.name];
    calls.push_back(call);
  }
  return calls;
}

}  // namespace

bool TracedCall::IsOn(int descriptor) const {
  const std::string start = name + "(" + std::to_string(descriptor);
  return line.starts_with(start + ")") || line.starts_with(start + ",");
}

bool CanTrace() {
  return RunTool({"strace", "-qq", "-o", "/dev/null", "true"});
}

Trace RunTraced(const std::vector<std::string>& words, const std::string& fault) {
  const TempFolder folder;
  const std::string log = folder.At("log");
  // The address sanitizer cannot detect leaks in a traced process.
  std::vector<std::string> command = {"timeout", "20",  "strace", "-qq", "-o", log, "-E", "ASAN_OPTIONS=detect_leaks=0",
                                      "-e",      kCalls};
  if (!fault.empty()) command.insert(command.end(), {"-e", "inject=" + fault});
  command.insert(command.end(), words.begin(), words.end());
  Trace trace;
  trace.exitCode = RunProgram(command);
  trace.calls = CallsIn(log);
  return trace;
}

std::string FaultOf(const TracedCall& call, const std::string& how) {
  return call.name + ":" + how + ":when=" + std::to_string(call.occurrence);
}

}  // namespace quillon::test
