#include "app/window/frmMainBoxes.h"

#include <wx/utils.h>

#include <algorithm>
#include <cmath>

#include "app/window/frmMainLayout.h"
#include "base/Text.h"
#include "controls/Twips.h"
#include "controls/WxText.h"

namespace quillon {
namespace {

constexpr double kTwipsPerCharacter = 140.0;

class TxtAlterTitle final : public RenameBox {
 public:
  explicit TxtAlterTitle(wxTextCtrl& control) : control_(control) {}

  [[nodiscard]] std::string Text() const override { return FromWx(control_.GetValue()); }

  void SetText(const std::string& text) override {
    ++changes_;
    control_.ChangeValue(ToWx(text));
  }

  // The control counts UTF-16 units on Windows, not characters.
  [[nodiscard]] int Caret() const override {
    const auto units = static_cast<std::size_t>(control_.GetInsertionPoint());
    return static_cast<int>(CharacterCount(FromWx(control_.GetValue().Left(units))));
  }

  void SetCaret(int position) override {
    const std::string text = Text();
    const std::string_view before = FirstCharacters(text, static_cast<std::size_t>(position));
    const long units = static_cast<long>(ToWx(before).length());
    NowAndAfterTyping([this, units] { control_.SetInsertionPoint(units); });
  }

  void SelectWholeText() override {
    NowAndAfterTyping([this] { control_.SelectAll(); });
  }

  [[nodiscard]] bool IsEnabled() const override { return control_.IsThisEnabled(); }
  void SetEnabled(bool enabled) override {
    if (control_.IsThisEnabled() != enabled) control_.Enable(enabled);
  }
  void TakeFocus() override { control_.SetFocus(); }
  void Beep() override { wxBell(); }

 private:
  // While a key is being handled, GTK moves the caret once more after the change event.
  template <class Action>
  void NowAndAfterTyping(Action action) {
    action();
    const int now = changes_;
    control_.CallAfter([this, action, now] {
      if (changes_ == now) action();
    });
  }

  wxTextCtrl& control_;
  int changes_ = 0;
};

class FraFileInfo final : public InformationBoxes {
 public:
  explicit FraFileInfo(const frmMainControls& controls) : controls_(controls) {}

  void SetTitle(const std::string& text) override { controls_.txtTitle->ChangeValue(ToWx(text)); }
  void SetFileName(const std::string& text) override { controls_.txtFileName->ChangeValue(ToWx(text)); }
  void SetSummary(const std::string& text) override { controls_.txtFileInfo->ChangeValue(ToWx(text)); }
  void SetDetail(const std::string& text) override { controls_.txtFileDetail->ChangeValue(ToWx(text)); }
  [[nodiscard]] std::size_t FileNameCharacters() const override {
    const wxTextCtrl& box = *controls_.txtFileName;
    const double characters = ToTwips(box, box.GetSize().x) / kTwipsPerCharacter;
    return static_cast<std::size_t>(std::max(std::nearbyint(characters), 0.0));
  }

 private:
  const frmMainControls& controls_;
};

}  // namespace

std::unique_ptr<RenameBox> MakeRenameBox(wxTextCtrl& txtAlterTitle) {
  return std::make_unique<TxtAlterTitle>(txtAlterTitle);
}

std::unique_ptr<InformationBoxes> MakeInformationBoxes(const frmMainControls& controls) {
  return std::make_unique<FraFileInfo>(controls);
}

}  // namespace quillon
