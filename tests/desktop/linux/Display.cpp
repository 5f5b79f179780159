#include "desktop/Display.h"

#include <gtk/gtk.h>

/// Read by the leak checker: what the font library keeps until the process ends is not ours.
extern "C" const char*
__lsan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
  return "leak:libfontconfig\n";
}

namespace quillon::test {

bool ConnectToDisplay() {
  return gtk_init_check(nullptr, nullptr) != FALSE;
}

}  // namespace quillon::test
