#include "platform/SharedLibrary.h"

#include <dlfcn.h>
#include <link.h>

#include "platform/FileSystem.h"
#include "platform/Program.h"

namespace quillon {
namespace {

bool IsFullPath(const std::string& path) {
  return path.starts_with('/');
}

// The folder in which the dynamic linker finds the library. The library is loaded to find out, because only the linker
// knows its complete search order. With an empty or relative entry in LD_LIBRARY_PATH the linker may load from the
// current folder; such a result is rejected.
std::optional<std::string> SystemLibraryFolder(const std::string& fileName) {
  void* library = ::dlopen(fileName.c_str(), RTLD_LAZY | RTLD_LOCAL);
  if (library == nullptr) return std::nullopt;
  link_map* loaded = nullptr;
  std::string path;
  if (::dlinfo(library, RTLD_DI_LINKMAP, static_cast<void*>(&loaded)) == 0) path = loaded->l_name;
  ::dlclose(library);
  if (!IsFullPath(path)) return std::nullopt;
  return path.substr(0, path.rfind('/') + 1);
}

}  // namespace

std::string SharedLibraryFileName(const std::string& name) {
  return "lib" + name + ".so";
}

std::optional<std::string> FindLibrary(const std::string& fileName) {
  const bool plain = !fileName.empty() && fileName.find('/') == std::string::npos;
  if (!plain) return std::nullopt;
  std::string folder = ProgramFolder();
  if (MakeFileReads()->IsFile(folder + fileName)) return folder;
  return SystemLibraryFolder(fileName);
}

SharedLibrary::SharedLibrary(const std::string& path)
    : handle_(IsFullPath(path) ? ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL) : nullptr) {}

SharedLibrary::~SharedLibrary() {
  if (handle_ != nullptr) ::dlclose(handle_);
}

void* SharedLibrary::Symbol(const char* name) const {
  return handle_ == nullptr ? nullptr : ::dlsym(handle_, name);
}

}  // namespace quillon
