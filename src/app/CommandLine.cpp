#include "app/CommandLine.h"

#include "filelist/paths/basFileControl.h"
#include "platform/FileSystem.h"

namespace quillon {

std::vector<std::string> CommandLinePaths(const std::optional<std::string>& raw,
                                          const std::vector<std::string>& arguments) {
  std::vector<std::string> paths;
  if (!raw) {
    for (const std::string& argument : arguments) paths.push_back(FullPath(argument));
    return paths;
  }
  for (const std::string& argument : SplitCommandLine(*raw)) paths.push_back(FullPath(UnquoteArgument(argument)));
  return paths;
}

}  // namespace quillon
