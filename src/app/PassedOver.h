#pragma once

#include <string>
#include <vector>

#include "base/Ports.h"
#include "filelist/SelectionStatus.h"
#include "filelist/WindowPorts.h"

namespace quillon {

/// Passes a search's progress on, to its window and the status bar, and keeps what a load went on without, to tell it
/// once at the end.
class PassedOverPaths final : public SearchDisplay {
 public:
  PassedOverPaths(SearchDisplay& display, SelectionStatus& status) : display_(display), status_(status) {}

  void Begin(const std::string& status, const std::string& target) override;
  void ShowFolder(const std::string& folder) override { display_.ShowFolder(folder); }
  void PassedOver(const std::string& path, Obstacle obstacle) override;
  void End() override;

  /// Says for each obstacle how many there were, and names the first ones; nothing when there were none. Forgets them.
  void Tell(MessageBoxes& boxes);

 private:
  struct Paths {
    int count = 0;
    std::vector<std::string> named;
  };
  Paths& Of(Obstacle obstacle);
  static std::string Text(const Paths& paths, const char* what);

  SearchDisplay& display_;
  SelectionStatus& status_;
  Paths noAccess_;
  Paths tooDeep_;
  Paths gone_;
};

}  // namespace quillon
