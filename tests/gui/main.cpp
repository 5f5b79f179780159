#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/evtloop.h>

#include <chrono>

#include "controls/GuardedApp.h"
#include "gui/Deadline.h"

namespace {

constexpr std::chrono::minutes kLongestTest(3);  // several times what the longest takes on a loaded machine

/// Tests run where a program's windows live: inside its event loop.
class TestApp final : public quillon::GuardedApp {
 public:
  bool OnInit() override {
    SetExitOnFrameDelete(false);
    return true;
  }

  // wx would open a box and wait.
  void OnAssertFailure(const wxChar* file, int line, const wxChar* function, const wxChar* condition,
                       const wxChar* message) override {
    ADD_FAILURE() << wxString(file).utf8_string() << ':' << line << ": " << wxString(function).utf8_string() << ": "
                  << wxString(condition).utf8_string() << ": " << wxString(message).utf8_string();
  }

  int OnRun() override {
    wxGUIEventLoop loop;
    const wxEventLoopActivator activated(&loop);
    return RUN_ALL_TESTS();
  }
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  testing::UnitTest::GetInstance()->listeners().Append(new quillon::test::Deadline(kLongestTest));
  wxApp::SetInstance(new TestApp);
  return wxEntry(argc, argv);
}
