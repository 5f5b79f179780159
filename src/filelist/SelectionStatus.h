#pragma once

#include <string>

#include "filelist/WindowPorts.h"

namespace quillon {

/// The panel that the player and the selected row share. It names the selected row only while the player is not
/// loading, playing or paused.
class SelectionStatus final : public PlayerStatus {
 public:
  explicit SelectionStatus(StatusPanels& panels) : panels_(panels) {}

  void ShowPlayer(PlayerState state, const std::string& file) override;
  void SetModeText(const std::string& text) { panels_.SetModeText(text); }

  /// "選択： " and the name, or the shortened path, of the selected row's file.
  void ShowSelection(const std::string& name);

  /// What a command has done. It stays until the next text, or until EndResult restores the text before it.
  void ShowResult(const std::string& text);
  void EndResult();

  /// Shows a temporary text; ShowAgain restores the one before it.
  void ShowForNow(const std::string& text) { panels_.SetPlayerText(text); }
  void ShowAgain() { panels_.SetPlayerText(text_); }

 private:
  void Show(std::string text);

  StatusPanels& panels_;
  bool showsResult_ = false;
  PlayerState player_ = PlayerState::kIdle;
  std::string text_ = PlayerText(PlayerState::kIdle, {});
};

}  // namespace quillon
