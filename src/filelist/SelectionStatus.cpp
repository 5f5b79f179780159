#include "filelist/SelectionStatus.h"

namespace quillon {

void SelectionStatus::SetPlayerText(const std::string& text) {
  text_ = text;
  panels_.SetPlayerText(text);
}

void SelectionStatus::ShowSelection(const std::string& name) {
  const bool playerIsIdle = text_.starts_with("停止：") || text_.starts_with(kCannotPlayText) ||
                            text_.starts_with(kCutShortText) || text_ == kPlayerIdleText || text_.starts_with("選択：");
  if (playerIsIdle) SetPlayerText("選択： " + name);
}

}  // namespace quillon
