#include <windows.h>

#include <gtest/gtest.h>

#include "support/Process.h"
#include "support/TempFolder.h"

namespace quillon::test {
namespace {

std::wstring Wide(const std::string& text) {
  const int length = static_cast<int>(text.size());
  std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0)), L' ');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

// Quotes an argument for CommandLineToArgvW: backslashes are special only before a quote.
std::wstring Quoted(const std::string& argument) {
  std::string quoted = "\"";
  std::size_t backslashes = 0;
  for (const char c : argument) {
    if (c == '"') quoted.append(backslashes + 1, '\\');
    backslashes = c == '\\' ? backslashes + 1 : 0;
    quoted += c;
  }
  return Wide(quoted.append(backslashes, '\\') + '"');
}

HANDLE Open(const std::string& path, DWORD access, DWORD creation) {
  SECURITY_ATTRIBUTES inherited = {sizeof(inherited), nullptr, TRUE};
  return CreateFileW(Wide(path).c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, creation,
                     FILE_ATTRIBUTE_NORMAL, nullptr);
}

}  // namespace

ProcessResult RunProcess(const std::string& program, const std::vector<std::string>& arguments,
                         std::string_view input) {
  const TempFolder folder;
  STARTUPINFOW start = {};
  start.cb = sizeof(start);
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = Open(folder.Write("in", input), GENERIC_READ, OPEN_EXISTING);
  start.hStdOutput = Open(folder.At("out"), GENERIC_WRITE, CREATE_NEW);
  start.hStdError = Open(folder.At("err"), GENERIC_WRITE, CREATE_NEW);
  std::wstring commandLine = Quoted(program);
  for (const std::string& argument : arguments) commandLine += L' ' + Quoted(argument);
  PROCESS_INFORMATION process = {};
  DWORD exitCode = 127;
  const bool started =
      CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &process) != 0;
  EXPECT_TRUE(started) << program << ", error " << GetLastError();
  if (started) {
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &exitCode);
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
  }
  for (HANDLE file : {start.hStdInput, start.hStdOutput, start.hStdError}) CloseHandle(file);
  return {static_cast<int>(exitCode), folder.Read("out"), folder.Read("err")};
}

}  // namespace quillon::test
