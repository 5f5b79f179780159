#pragma once

#include <wx/timer.h>
#include <wx/uiaction.h>

#include <utility>
#include <vector>

namespace quillon::test {

/// Presses keys in a menu that opens soon after this object is made. It is a timer because no other code runs while a
/// menu is open on Windows.
class MenuKeys final : public wxTimer {
 public:
  explicit MenuKeys(std::vector<int> keys) : keys_(std::move(keys)) { StartOnce(kUntilShown); }

  void Notify() override {
    for (const int key : keys_) wxUIActionSimulator().Char(key);
  }

 private:
  static constexpr int kUntilShown = 400;  // milliseconds

  std::vector<int> keys_;
};

}  // namespace quillon::test
