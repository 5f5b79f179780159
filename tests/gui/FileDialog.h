#pragma once

#include <string>

class wxFileDialog;

namespace quillon::test {

/// Makes this file the dialog's choice, which needs other code on each system. Returns what wxModalDialogHook::Enter
/// has to return.
[[nodiscard]] int AnswerWithFile(wxFileDialog& dialog, const std::string& path);

}  // namespace quillon::test
