#pragma once

#include <string>
#include <vector>

#include "base/Ports.h"
#include "filelist/WindowPorts.h"

namespace quillon {

/// Passes a search's progress on, and keeps what a load went on without, to tell it once at the end.
class PassedOverPaths final : public SearchDisplay {
 public:
  explicit PassedOverPaths(SearchDisplay& display) : display_(display) {}

  void Begin(const std::string& status, const std::string& target) override { display_.Begin(status, target); }
  void ShowFolder(const std::string& folder) override { display_.ShowFolder(folder); }
  void PassedOver(const std::string& path) override;
  void End() override { display_.End(); }

  /// Says how many there were, and names the first ones; nothing when there were none. Forgets them.
  void Tell(MessageBoxes& boxes);

 private:
  SearchDisplay& display_;
  std::vector<std::string> named_;
  int count_ = 0;
};

}  // namespace quillon
