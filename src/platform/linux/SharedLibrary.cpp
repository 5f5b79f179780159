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

// Where the dynamic linker finds the library: its search order is long and only itself knows it, so it is asked. An
// empty or relative entry of LD_LIBRARY_PATH makes it load from the current folder, which is between it and whoever set
// that; what it found there is not taken.
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
