#include "platform/SharedLibrary.h"

#include <windows.h>

#include "base/Text.h"
#include "platform/FileSystem.h"
#include "platform/Program.h"
#include "platform/windows/Wide.h"

namespace quillon {
namespace {

std::optional<std::string> SystemLibraryFolder(const std::wstring& fileName) {
  const DWORD needed = ::SearchPathW(nullptr, fileName.c_str(), nullptr, 0, nullptr, nullptr);
  if (needed == 0) return std::nullopt;
  std::wstring path(needed, L'\0');
  path.resize(::SearchPathW(nullptr, fileName.c_str(), nullptr, needed, path.data(), nullptr));
  return FromWide(path.substr(0, path.rfind(L'\\') + 1));
}

}  // namespace

std::string SharedLibraryFileName(const std::string& name) {
  return ToUpper(name) + ".DLL";
}

std::optional<std::string> FindLibrary(const std::string& fileName) {
  const std::optional<std::wstring> wideName = ToWide(fileName);
  const bool plain = !fileName.empty() && fileName.find_first_of("\\/:") == std::string::npos;
  if (!plain || !wideName) return std::nullopt;
  std::string folder = ProgramFolder();
  if (MakeFileReads()->IsFile(folder + fileName)) return folder;
  return SystemLibraryFolder(*wideName);
}

SharedLibrary::SharedLibrary(const std::string& path) {
  if (const std::optional<std::wstring> widePath = ToWide(path)) handle_ = ::LoadLibraryW(widePath->c_str());
}

SharedLibrary::~SharedLibrary() {
  if (handle_ != nullptr) ::FreeLibrary(static_cast<HMODULE>(handle_));
}

void* SharedLibrary::Symbol(const char* name) const {
  if (handle_ == nullptr) return nullptr;
  return reinterpret_cast<void*>(::GetProcAddress(static_cast<HMODULE>(handle_), name));
}

}  // namespace quillon
