#include <windows.h>

#include <algorithm>
#include <array>
#include <vector>

#include "platform/Program.h"
#include "platform/windows/Wide.h"

namespace quillon {
namespace {

constexpr std::size_t kMostAtOnce = 65536;

bool IsConsole(HANDLE stream) {
  DWORD mode = 0;
  return ::GetConsoleMode(stream, &mode) != 0;
}

void MakeConsoleUtf8(HANDLE stream) {
  if (IsConsole(stream)) ::SetConsoleOutputCP(CP_UTF8);
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

std::string ReadConsoleLine(HANDLE console) {
  constexpr wchar_t kEndOfInput = L'\x1A';  // Ctrl-Z at the start of a line
  std::vector<wchar_t> buffer(kMostAtOnce / 4);
  DWORD got = 0;
  if (!::ReadConsoleW(console, buffer.data(), static_cast<DWORD>(buffer.size()), &got, nullptr)) return {};
  if (got == 0 || buffer.front() == kEndOfInput) return {};
  return FromWide({buffer.data(), got});
}

}  // namespace

StreamResult WriteStandardOutput(std::string_view bytes) {
  return WriteAll(STD_OUTPUT_HANDLE, bytes);
}

StreamResult WriteStandardError(std::string_view bytes) {
  return WriteAll(STD_ERROR_HANDLE, bytes);
}

bool StandardInputIsTerminal() {
  return IsConsole(::GetStdHandle(STD_INPUT_HANDLE));
}

std::string ReadSomeStandardInput() {
  HANDLE stream = ::GetStdHandle(STD_INPUT_HANDLE);
  if (Interrupted()) return {};
  if (IsConsole(stream)) return ReadConsoleLine(stream);
  std::array<char, kMostAtOnce> buffer = {};
  DWORD got = 0;
  if (!::ReadFile(stream, buffer.data(), static_cast<DWORD>(buffer.size()), &got, nullptr)) return {};
  return {buffer.data(), got};
}

std::string ReadStandardInput() {
  std::string all;
  for (std::string piece = ReadSomeStandardInput(); !piece.empty(); piece = ReadSomeStandardInput()) all += piece;
  return all;
}

}  // namespace quillon
