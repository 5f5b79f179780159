#pragma once

#include <wx/panel.h>
#include <wx/stattext.h>

#include <chrono>
#include <functional>
#include <string>

#include "base/Ports.h"
#include "base/Throttle.h"
#include "filelist/WindowPorts.h"

namespace quillon {

/// Shown in place of the list while files are read: lblNowloading covers the list, with picNowLoding and its caption
/// lblPicNowLoding in the middle. It is not shown for a quick load.
class LoadingLabel final : public ProgressDisplay {
 public:
  /// The label's window is made as a child of `parent`; `list` is hidden while it shows. `changed` is called when the
  /// label has appeared or disappeared.
  LoadingLabel(wxWindow& parent, const std::function<wxWindow&()>& list, std::function<void()> changed);

  [[nodiscard]] wxWindow& Window() { return *lblNowloading_; }

  void Begin(const std::string& headline, const std::string& line) override;
  void Update(int percent, const std::string& text, const std::string& path) override;
  void End() override;

  /// Call it repeatedly during a load: it shows the label once the load has lasted a moment.
  void ShowIfLate();

 private:
  void MakeContents();  // at the first load

  using Clock = std::chrono::steady_clock;

  std::function<wxWindow&()> list_;
  std::function<void()> changed_;
  wxPanel* lblNowloading_;
  wxStaticText* lblPicNowLoding_ = nullptr;
  wxStaticText* lblLine_ = nullptr;
  wxStaticText* lblPercent_ = nullptr;
  Clock::time_point begun_;
  bool active_ = false;
  bool hadFocus_ = false;  // whether the list had it
};

/// Processes messages in long loops, at most every ten milliseconds: more often would cost more than the loop.
class YieldingMessages final : public PendingMessages {
 public:
  explicit YieldingMessages(std::function<void()> before) : before_(std::move(before)) {}
  void Process() override;

 private:
  std::function<void()> before_;
  Throttle throttle_{std::chrono::milliseconds(10)};
};

}  // namespace quillon
