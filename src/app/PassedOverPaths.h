#pragma once

#include <string>
#include <vector>

#include "base/Ports.h"
#include "filelist/PassedOver.h"

namespace quillon {

/// Collects the paths that a load skipped, to tell them once at the end.
class PassedOverPaths {
 public:
  void Add(const std::vector<PassedOver>& paths);

  /// Shows one message with the number of paths for each obstacle, and the first of them; nothing when there are none.
  /// Then forgets them.
  void Tell(MessageBoxes& boxes);

 private:
  struct Paths {
    int count = 0;
    std::vector<std::string> named;
  };
  Paths& Of(Obstacle obstacle);
  static std::string Text(const Paths& paths, const char* what);

  Paths noAccess_;
  Paths tooDeep_;
  Paths gone_;
};

}  // namespace quillon
