#include <windows.h>

#include <algorithm>
#include <array>

#include "platform/Program.h"

namespace quillon {
namespace {

constexpr std::size_t kMostAtOnce = 65536;

void MakeConsoleUtf8(HANDLE stream) {
  DWORD mode = 0;
  if (::GetConsoleMode(stream, &mode)) ::SetConsoleOutputCP(CP_UTF8);
}

StreamResult WriteAll(DWORD number, std::string_view bytes) {
  HANDLE stream = ::GetStdHandle(number);
  MakeConsoleUtf8(stream);
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto count = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
    if (!::WriteFile(stream, bytes.data(), count, &written, nullptr) || written == 0) {
      const DWORD failure = ::GetLastError();
      const bool closed = failure == ERROR_BROKEN_PIPE || failure == ERROR_NO_DATA;
      return closed ? StreamResult::kClosed : StreamResult::kFailed;
    }
    bytes.remove_prefix(written);
  }
  return StreamResult::kWritten;
}

}  // namespace

StreamResult WriteStandardOutput(std::string_view bytes) {
  return WriteAll(STD_OUTPUT_HANDLE, bytes);
}

StreamResult WriteStandardError(std::string_view bytes) {
  return WriteAll(STD_ERROR_HANDLE, bytes);
}

std::string ReadStandardInput() {
  HANDLE stream = ::GetStdHandle(STD_INPUT_HANDLE);
  std::string all;
  std::array<char, kMostAtOnce> buffer = {};
  DWORD got = 0;
  while (!Interrupted() && ::ReadFile(stream, buffer.data(), static_cast<DWORD>(buffer.size()), &got, nullptr) &&
         got > 0) {
    all.append(buffer.data(), got);
  }
  return all;
}

}  // namespace quillon
