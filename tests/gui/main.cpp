#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/evtloop.h>

namespace {

/// Tests run where a program's windows live: inside its event loop.
class TestApp final : public wxApp {
 public:
  bool OnInit() override {
    SetExitOnFrameDelete(false);
    return true;
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
  wxApp::SetInstance(new TestApp);
  return wxEntry(argc, argv);
}
