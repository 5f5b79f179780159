#pragma once

#include <wx/infobar.h>

#include <functional>
#include <string>

#include "app/TagsOffer.h"

namespace quillon {

/// The bar above the list. Its window is made when it is first shown.
class MoreTagsBar final : public TagsBar {
 public:
  struct Handlers {
    std::function<void()> read;    ///< the button 読み取る
    std::function<void()> close;   ///< the button 閉じる
    std::function<void()> layOut;  ///< the bar has appeared or disappeared
  };

  MoreTagsBar(wxWindow& parent, Handlers handlers) : parent_(parent), handlers_(std::move(handlers)) {}

  void ShowTagsOffer(const std::string& text) override;
  void HideTagsOffer() override;

  /// The room that the bar takes above the list, in pixels; 0 while it is hidden.
  [[nodiscard]] int Height() const;
  void Place(int left, int width);

 private:
  void Make();

  wxWindow& parent_;
  Handlers handlers_;
  wxInfoBar* bar_ = nullptr;  // owned by its parent, like every wx child
};

}  // namespace quillon
