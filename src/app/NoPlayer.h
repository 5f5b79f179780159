#pragma once

#include "app/InformationPanel.h"
#include "filelist/WindowPorts.h"

namespace quillon {

/// A program that plays nothing: no file is ever loaded, no playing time known.
class NoPlayer final : public PlayerControl, public PlayTimes {
 public:
  void ReleaseFile(const std::string& /*path*/) override {}
  void Stop() override {}
  void Choose(const std::string& /*path*/) override {}
  [[nodiscard]] std::optional<std::int32_t> LengthOf(const std::string& /*path*/) override { return std::nullopt; }
};

}  // namespace quillon
