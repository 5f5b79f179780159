#include "platform/linux/UserFolders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

#include "platform/FileSystem.h"
#include "platform/Program.h"

namespace quillon {
namespace {

std::string FullPathIn(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value == '/' ? std::string(value) : std::string();
}

std::string WithSlash(std::string folder) {
  if (folder.empty() || folder.back() != '/') folder += '/';
  return folder;
}

std::string Home() {
  std::string home = FullPathIn("HOME");
  if (!home.empty()) return home;
  const passwd* user = ::getpwuid(::getuid());
  return user != nullptr && user->pw_dir != nullptr ? std::string(user->pw_dir) : std::string();
}

}  // namespace

std::string UserFolder(const char* variable, const char* underHome) {
  const std::string folder = FullPathIn(variable);
  if (!folder.empty()) return WithSlash(folder);
  const std::string home = Home();
  return home.empty() ? std::string() : WithSlash(home) + underHome;
}

std::string UserConfigurationFolder() {
  return UserFolder("XDG_CONFIG_HOME", ".config/");
}

std::string UserTrashFolder() {
  const std::string data = UserFolder("XDG_DATA_HOME", ".local/share/");
  return data.empty() ? std::string() : data + "Trash/";
}

}  // namespace quillon
