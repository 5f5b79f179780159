#include "settings/SettingsFile.h"

#include <memory>

#include "platform/FileSystem.h"
#include "platform/PathStyle.h"
#include "platform/Program.h"
#include "platform/WholeFile.h"

namespace quillon {
namespace {

std::string InFolder(std::string folder, const std::string& name) {
  const char separator = SystemPathStyle() == PathStyle::kWindows ? '\\' : '/';
  if (!folder.ends_with(separator)) folder += separator;
  return folder + name;
}

}  // namespace

std::string SettingsFilePath(const std::string& programFolder, const std::string& baseName) {
  const std::string name = baseName + ".ini";
  if (CanWriteFolder(programFolder)) return InFolder(programFolder, name);
  return InFolder(InFolder(UserConfigurationFolder(), baseName), name);
}

bool mnuOptionDefaultExit(const std::string& path, const OptionValues& options, MessageBoxes& boxes) {
  const bool confirmed = options.system.suppressConfirmations ||
                         boxes.Show({"設定をデフォルトに戻して終了", "設定をすべてデフォルトに戻して終了します",
                                     MessageIcon::kQuestion, MessageButtons::kYesNo});
  if (confirmed) ResetSettings(path);
  return confirmed;
}

void ResetSettings(const std::string& path) {
  // A failure is ignored: the file does not exist, or the program may not delete it.
  const FileOutcome ignored = MakeFileChanges()->Remove(path);
  static_cast<void>(ignored);
}

}  // namespace quillon
