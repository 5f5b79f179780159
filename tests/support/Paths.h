#pragma once

#include <string>
#include <vector>

#include "base/PathList.h"
#include "paths/basFileControl.h"

namespace quillon::test {

inline std::vector<std::string> PathsOf(const PathList& list) {
  std::vector<std::string> paths;
  for (const PathList::File file : list) paths.push_back(file.Path());
  return paths;
}

inline PathList ListOf(const std::vector<std::string>& paths, PathStyle style = SystemPathStyle()) {
  PathList list;
  for (const std::string& path : paths) AddPath(list, path, style);
  return list;
}

}  // namespace quillon::test
