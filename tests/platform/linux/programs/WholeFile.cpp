#include "platform/WholeFile.h"

#include <span>
#include <string>

/// Reads or replaces one small file, for tests that trace its system calls or make them fail:
///     quillon_whole_file read PATH             0 read, 1 absent, 2 unreadable, 3 too large
///     quillon_whole_file replace PATH TEXT     0 replaced, 4 failed
int main(int argc, char** argv) {
  const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
  if (argc == 3 && std::string(arguments[1]) == "read") {
    const quillon::Result<std::string, quillon::ReadFailure> read = quillon::ReadWholeFile(arguments[2], 100);
    return read ? 0 : 1 + static_cast<int>(read.Failure());
  }
  if (argc == 4 && std::string(arguments[1]) == "replace") {
    return quillon::ReplaceWholeFile(arguments[2], arguments[3]) ? 4 : 0;
  }
  return 5;
}
