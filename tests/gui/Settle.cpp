#include "gui/Settle.h"

#include <wx/app.h>
#include <wx/stopwatch.h>
#include <wx/utils.h>

namespace quillon::test {
namespace {

constexpr long kPatience = 10000;
constexpr long kQuiet = 150;
constexpr unsigned long kPause = 5;

bool ProcessUntil(const std::function<bool()>& condition, long milliseconds) {
  const wxStopWatch watch;
  while (!condition()) {
    if (watch.Time() > milliseconds) return false;
    wxYield();
    wxMilliSleep(kPause);
  }
  return true;
}

}  // namespace

bool SettleUntil(const std::function<bool()>& condition) {
  return ProcessUntil(condition, kPatience);
}

void Settle() {
  ProcessUntil([] { return false; }, kQuiet);
}

}  // namespace quillon::test
