#include <gtest/gtest.h>
#include <wx/frame.h>

#include "controls/WxMessageBoxes.h"
#include "gui/Dialogs.h"

namespace quillon::test {
namespace {

// Windows would bring another program to the front when a box over a disabled window closes.
TEST(WxMessageBoxes, StandOverAnEnabledWindowAndLeaveItAsItWas) {
  auto* const frame = new wxFrame(nullptr, wxID_ANY, "owner");
  for (const bool enabled : {false, true}) {
    frame->Enable(enabled);
    Dialogs dialogs;
    bool meanwhile = false;
    dialogs.AnswerAfter([&] { meanwhile = frame->IsThisEnabled(); });
    EXPECT_TRUE(WxMessageBoxes(frame).Show({"caption", "text"}));
    EXPECT_TRUE(meanwhile);
    EXPECT_EQ(frame->IsThisEnabled(), enabled);
  }
  frame->Destroy();
}

}  // namespace
}  // namespace quillon::test
