#pragma once

#include <wx/modalhook.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "base/Ports.h"

namespace quillon::test {

/// Answers dialogs in place of the user, with the answers given beforehand, in their order. A dialog without an answer
/// is cancelled and is a failure; so is an answer that no dialog asked for. Texts are kept with "\n" as line break, as
/// a box shows them.
class Dialogs final : public wxModalDialogHook {
 public:
  Dialogs() { Register(); }
  ~Dialogs() override;
  Dialogs(const Dialogs&) = delete;
  Dialogs& operator=(const Dialogs&) = delete;

  /// The next dialog is a message box: true for OK and Yes.
  void Answer(bool yes = true);
  /// The next one is a message box too; `during` is called while the box would be open.
  void AnswerAfter(const std::function<void()>& during, bool yes = true);
  /// The next one asks for a folder; empty cancels it.
  void ChooseFolder(const std::string& path);
  /// The next one asks for files; empty cancels it.
  void ChooseFile(const std::string& path);
  /// The next one is really shown; `act` is called then and has to close it.
  void Use(const std::function<void(wxDialog&)>& act);

  /// Message boxes shown since the last call.
  [[nodiscard]] std::vector<Message> TakeShown();
  [[nodiscard]] bool AllShown() const { return answers_.empty(); }
  /// Prompt and start folder of the last dialog that asked for a folder.
  [[nodiscard]] const std::string& Prompt() const { return prompt_; }
  [[nodiscard]] const std::string& StartFolder() const { return startFolder_; }

 protected:
  int Enter(wxDialog* dialog) override;

 private:
  using AnswerTo = std::function<int(wxDialog&)>;

  int AnswerBox(wxDialog& dialog, const std::function<void()>& during, bool yes);
  int GiveFolder(wxDialog& dialog, const std::string& path);

  std::deque<AnswerTo> answers_;
  std::vector<Message> shown_;
  std::string prompt_;
  std::string startFolder_;
};

}  // namespace quillon::test
