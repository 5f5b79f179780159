#include "platform/Program.h"

// windows.h has to come first.
// clang-format off
#include <windows.h>
#include <shellapi.h>
#include <shlobj.h>
// clang-format on

#include <algorithm>
#include <atomic>
#include <memory>

#include "base/Text.h"
#include "platform/windows/Wide.h"

namespace quillon {
namespace {

std::string ExecutablePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) return FromWide(std::wstring_view(path).substr(0, length));
    path.resize(path.size() * 2);
  }
}

// The console calls its handler on another thread and passes no context.
std::atomic<bool> interrupted = false;

BOOL WINAPI NoteInterruption(DWORD event) {
  if (event != CTRL_C_EVENT) return FALSE;
  interrupted = true;
  return TRUE;
}

}  // namespace

std::string ProgramFolder() {
  const std::string path = ExecutablePath();
  return path.substr(0, path.rfind('\\') + 1);
}

std::string ProgramBaseName() {
  constexpr std::string_view kExtension = ".exe";
  const std::string path = ExecutablePath();
  std::string name = path.substr(path.rfind('\\') + 1);
  if (EqualIgnoringCase(LastCharacters(name, kExtension.size()), kExtension)) {
    name.resize(name.size() - kExtension.size());
  }
  return name;
}

void KeepToOwnAndSystemLibraries() {
  ::SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
  // Removes the current folder from searches that use the older rules.
  ::SetDllDirectoryW(L"");
}

std::string UserConfigurationFolder() {
  wchar_t* found = nullptr;
  std::string folder;
  if (SUCCEEDED(::SHGetKnownFolderPath(FOLDERID_RoamingAppData, KF_FLAG_DONT_VERIFY, nullptr, &found))) {
    folder = FromWide(found) + '\\';
  }
  ::CoTaskMemFree(found);
  return folder;
}

bool UserReadsJapanese() {
  return PRIMARYLANGID(::GetUserDefaultUILanguage()) == LANG_JAPANESE;
}

// Not from argv, which lacks characters outside the system's code page.
std::vector<std::string> ProgramArguments(int, char**) {
  int count = 0;
  const std::unique_ptr<wchar_t*, decltype(&::LocalFree)> all(::CommandLineToArgvW(::GetCommandLineW(), &count),
                                                              &::LocalFree);
  std::vector<std::string> arguments;
  for (int i = 1; all && i < count; ++i) arguments.push_back(FromWide(all.get()[i]));
  return arguments;
}

std::optional<std::string> RawCommandLine() {
  std::wstring_view line = ::GetCommandLineW();
  const bool quoted = line.starts_with(L'"');
  const std::size_t nameEnd = line.find(quoted ? L'"' : L' ', 1);
  line.remove_prefix(std::min(nameEnd == std::wstring_view::npos ? line.size() : nameEnd + 1, line.size()));
  line.remove_prefix(std::min(line.find_first_not_of(L' '), line.size()));
  return FromWide(line);
}

void CatchInterruption() {
  ::SetConsoleCtrlHandler(NoteInterruption, TRUE);
}

bool Interrupted() {
  return interrupted;
}

}  // namespace quillon
