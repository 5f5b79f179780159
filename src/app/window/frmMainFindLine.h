#pragma once

#include <wx/button.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <functional>
#include <string>
#include <utility>

#include "app/FindCommands.h"
#include "controls/TextBox.h"

namespace quillon {

/// The find line above the list, fraFind: the box txtFind, the buttons cmdFindPrevious, cmdFindNext and cmdFindClose,
/// and lblFound. In the box, Enter and Shift+Enter go to the next and the previous row found; Esc closes the line. Its
/// window is made when it is first shown.
class FraFind final : public FindLine {
 public:
  struct Handlers {
    std::function<void(const std::string& text)> typed;
    std::function<void()> next;
    std::function<void()> previous;
    std::function<void()> close;   ///< the button 閉じる, or Esc
    std::function<void()> layOut;  ///< the line has appeared or disappeared
  };

  FraFind(wxWindow& parent, std::function<wxWindow&()> list, Handlers handlers)
      : parent_(parent), list_(std::move(list)), handlers_(std::move(handlers)) {}

  void OpenFindLine() override;
  void CloseFindLine() override;
  [[nodiscard]] bool IsFindLineOpen() const override { return fraFind_ != nullptr && fraFind_->IsShown(); }
  void ShowFound(const std::string& text) override;

  /// Whether the box accepts input; off while a command runs.
  void SetInputEnabled(bool enabled);

  /// The room that the line takes above the list, in pixels; 0 while it is closed.
  [[nodiscard]] int Height() const;
  void Place(int left, int top, int width);

 private:
  void Make();
  void AddControls(wxSizer& row);
  wxButton* MakeButton(const char* name, const char* label, const std::string& tip,
                       const std::function<void()>& pressed);
  void OnBoxKey(wxKeyEvent& event) const;
  void OnButtonKey(wxKeyEvent& event);

  wxWindow& parent_;
  std::function<wxWindow&()> list_;
  Handlers handlers_;
  // Owned by their parents, like every wx child:
  wxPanel* fraFind_ = nullptr;
  TextBox* txtFind_ = nullptr;
  wxStaticText* lblFound_ = nullptr;
};

}  // namespace quillon
