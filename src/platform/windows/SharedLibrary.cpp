#include "platform/SharedLibrary.h"

#include <windows.h>

#include <algorithm>
#include <vector>

#include "base/Text.h"
#include "platform/FileSystem.h"
#include "platform/Program.h"
#include "platform/WindowsPath.h"
#include "platform/windows/Wide.h"

namespace quillon {
namespace {

// Returns the text from a system call that is first asked for the size.
template <class Call>
std::wstring SystemText(Call call) {
  std::wstring text(call(nullptr, 0), L'\0');
  text.resize(call(text.data(), static_cast<UINT>(text.size())));
  return text;
}

// The entries of PATH that are full paths; others depend on the current folder.
std::vector<std::string> PathFolders() {
  const std::string path =
      FromWide(SystemText([](wchar_t* text, UINT size) { return ::GetEnvironmentVariableW(L"PATH", text, size); }));
  std::vector<std::string> folders;
  for (const std::string_view folder : Split(path, ';')) {
    if (IsFullWindowsPath(folder)) folders.push_back(TidyWindowsPath(folder));
  }
  return folders;
}

// The system's search order without the current folder, where anyone may have put a file.
std::vector<std::string> SearchedFolders() {
  std::vector<std::string> folders = {
      ProgramFolder(),
      FromWide(SystemText([](wchar_t* text, UINT size) { return ::GetSystemDirectoryW(text, size); })),
      FromWide(SystemText([](wchar_t* text, UINT size) { return ::GetSystemWindowsDirectoryW(text, size); })),
  };
  std::ranges::move(PathFolders(), std::back_inserter(folders));
  return folders;
}

}  // namespace

std::string SharedLibraryFileName(const std::string& name) {
  return ToUpper(name) + ".DLL";
}

std::optional<std::string> FindLibrary(const std::string& fileName) {
  const bool plain = !fileName.empty() && fileName.find_first_of("\\/:") == std::string::npos;
  if (!plain) return std::nullopt;
  for (std::string folder : SearchedFolders()) {
    if (!folder.ends_with('\\')) folder += '\\';
    if (MakeFileReads()->IsFile(folder + fileName)) return folder;
  }
  return std::nullopt;
}

SharedLibrary::SharedLibrary(const std::string& path) {
  constexpr DWORD kOwnLibrariesFrom = LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32;
  const std::optional<std::wstring> widePath = ToWide(path);
  if (widePath && IsFullWindowsPath(path)) handle_ = ::LoadLibraryExW(widePath->c_str(), nullptr, kOwnLibrariesFrom);
}

SharedLibrary::~SharedLibrary() {
  if (handle_ != nullptr) ::FreeLibrary(static_cast<HMODULE>(handle_));
}

void* SharedLibrary::Symbol(const char* name) const {
  if (handle_ == nullptr) return nullptr;
  return reinterpret_cast<void*>(::GetProcAddress(static_cast<HMODULE>(handle_), name));
}

}  // namespace quillon
