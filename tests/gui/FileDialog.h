#pragma once

#include <string>

class wxFileDialog;

namespace quillon::test {

/// Makes this file the dialog's choice, for what wxModalDialogHook::Enter returns: nothing portable can.
[[nodiscard]] int AnswerWithFile(wxFileDialog& dialog, const std::string& path);

}  // namespace quillon::test
