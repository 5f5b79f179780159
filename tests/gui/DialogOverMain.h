#pragma once

#include <gtest/gtest.h>
#include <wx/frame.h>

#include <memory>

#include "gui/Settle.h"

namespace quillon::test {

/// A dialog over a plain main window, which is the active window when the test begins: otherwise the window manager may
/// give it the focus after the dialog. Derived fixtures make the dialog.
template <class Dialog>
class DialogOverMain : public testing::Test {
 protected:
  void SetUp() override {
    main = new wxFrame(nullptr, wxID_ANY, "main");
    main->Show();
    EXPECT_TRUE(SettleUntil([this] { return main->IsActive(); }));
  }

  void TearDown() override {
    dialog.reset();
    main->Destroy();
    Settle();
  }

  wxFrame* main = nullptr;
  std::unique_ptr<Dialog> dialog;
};

}  // namespace quillon::test
