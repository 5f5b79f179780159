#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

#include "platform/Program.h"
#include "platform/linux/WriteAll.h"

namespace quillon {
namespace {

// Writing to a closed pipe must return an error, not end the program.
void IgnoreBrokenPipes() {
  static const bool ignored = ::signal(SIGPIPE, SIG_IGN) != SIG_ERR;
  static_cast<void>(ignored);
}

StreamResult Write(int stream, std::string_view bytes) {
  IgnoreBrokenPipes();
  if (WriteAll(stream, bytes)) return StreamResult::kWritten;
  return errno == EPIPE ? StreamResult::kClosed : StreamResult::kFailed;
}

}  // namespace

StreamResult WriteStandardOutput(std::string_view bytes) {
  return Write(STDOUT_FILENO, bytes);
}

StreamResult WriteStandardError(std::string_view bytes) {
  return Write(STDERR_FILENO, bytes);
}

bool StandardInputIsTerminal() {
  return ::isatty(STDIN_FILENO) != 0;
}

std::string ReadSomeStandardInput() {
  std::array<char, 65536> buffer = {};
  while (!Interrupted()) {
    const ssize_t got = ::read(STDIN_FILENO, buffer.data(), buffer.size());
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    return {buffer.data(), static_cast<std::size_t>(got)};
  }
  return {};
}

std::string ReadStandardInput() {
  std::string all;
  for (std::string piece = ReadSomeStandardInput(); !piece.empty(); piece = ReadSomeStandardInput()) all += piece;
  return all;
}

}  // namespace quillon
