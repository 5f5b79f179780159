#include "gui/PlayerWindow.h"

#include <wx/slider.h>
#include <wx/stattext.h>
#include <wx/stopwatch.h>
#include <wx/utils.h>

#include <chrono>
#include <memory>

#include "controls/WxText.h"
#include "platform/multimedia/MediaDevice.h"
#include "support/MediaBuilders.h"

namespace quillon::test {
namespace {

constexpr unsigned long kPause = 5;
constexpr int kProbeLength = 5000;  // the first sound of a session may start slowly
constexpr int kSliderEnd = 12;      // DIP: half a thumb, where the groove begins

}  // namespace

bool DevicePlays(const std::string& path) {
  const std::unique_ptr<MediaDevice> device = MakeMediaDevice();
  if (!device->Open(path).Ok()) return false;
  device->Play();
  const wxStopWatch watch;
  bool passes = false;
  while (!passes && watch.Time() < kProbeLength) {
    wxMilliSleep(kPause);
    const bool moved = device->Position() != 0;
    passes = device->Mode() == MediaMode::kPlaying && moved;
  }
  return passes;
}

void PlayerOfMainWindow::SetUp() {
  static const bool kPlays = DevicePlays(home.Write("probe.wav", WaveFile(kProbeLength)));
  if (!kPlays && DeviceMayStandStill()) GTEST_SKIP() << "the system's device stands still: it needs a sound device";
}

void PlayerOfMainWindow::WriteWave(const std::string& name, int milliseconds) const {
  folder.Write(name, WaveFile(static_cast<std::uint32_t>(milliseconds)));
}

void PlayerOfMainWindow::DoubleClickRow(int index) const {
  const wxRect row = NativeRowRect(Frame().List(), index);
  wxUIActionSimulator mouse;
  mouse.MouseMove(row.GetTopLeft() + wxPoint(row.width / 2, row.height / 2));
  wxYield();
  mouse.MouseDblClick();
  Drain();
}

bool PlayerOfMainWindow::Shows(const std::string& status) const {
  return Until([&] { return Status(kSelectionPanel) == status; });
}

std::string PlayerOfMainWindow::Time() const {
  return FromWx(Get<wxStaticText>("lblTime").GetLabel());
}

int PlayerOfMainWindow::Position() const {
  return Get<wxSlider>("sldPosition").GetValue();
}

int PlayerOfMainWindow::Length() const {
  return Get<wxSlider>("sldPosition").GetMax();
}

bool PlayerOfMainWindow::PositionPasses(int milliseconds) const {
  return Until([&] { return Position() > milliseconds; });
}

wxPoint PlayerOfMainWindow::SliderPoint(double share) const {
  const wxRect slider = Get<wxSlider>("sldPosition").GetScreenRect();
  const int end = Frame().FromDIP(kSliderEnd);
  return {slider.x + end + static_cast<int>(share * (slider.width - 2 * end)), slider.y + slider.height / 2};
}

void PlayerOfMainWindow::Wait(int milliseconds) {
  const wxStopWatch watch;
  while (watch.Time() < milliseconds) {
    wxYield();
    wxMilliSleep(kPause);
  }
}

}  // namespace quillon::test
