#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "app/RenameEditing.h"
#include "base/Text.h"
#include "support/Recorders.h"

namespace quillon::test {

/// A text box with caret, selection and focus. What the logic changes is logged; what the test changes is not.
class RenameBoxRecorder final : public RenameBox {
 public:
  explicit RenameBoxRecorder(EventLog& log) : log_(log) {}

  [[nodiscard]] std::string Text() const override { return text_; }
  void SetText(const std::string& text) override {
    log_.Add("rename box text: " + text);
    Put(text, 0);
  }
  [[nodiscard]] int Caret() const override { return caret_; }
  void SetCaret(int position) override {
    log_.Add("rename box caret " + std::to_string(position));
    caret_ = position;
    wholeTextSelected_ = false;
  }
  void SelectWholeText() override {
    log_.Add("rename box whole text");
    wholeTextSelected_ = true;
    caret_ = static_cast<int>(CharacterCount(text_));
  }
  [[nodiscard]] bool IsEnabled() const override { return enabled_; }
  void SetEnabled(bool enabled) override {
    if (enabled != enabled_) log_.Add(enabled ? "rename box enabled" : "rename box disabled");
    enabled_ = enabled;
  }
  void TakeFocus() override {
    log_.Add("focus rename box");
    focused_ = true;
  }
  void Beep() override { log_.Add("beep"); }

  /// Sets text and caret as typing does. The caller then notifies the logic.
  void Put(std::string text, int caret) {
    text_ = std::move(text);
    caret_ = caret;
    wholeTextSelected_ = false;
  }
  void LoseFocus() { focused_ = false; }
  [[nodiscard]] bool HasFocus() const { return focused_; }
  [[nodiscard]] bool WholeTextSelected() const { return wholeTextSelected_; }

 private:
  EventLog& log_;
  std::string text_;
  int caret_ = 0;
  bool enabled_ = false;
  bool focused_ = false;
  bool wholeTextSelected_ = false;
};

}  // namespace quillon::test
