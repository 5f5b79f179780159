#include "desktop/Display.h"

#include <gtk/gtk.h>

/// Tells the leak checker to ignore memory that the font library keeps until the process ends.
extern "C" const char*
__lsan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
  return "leak:libfontconfig\n";
}

namespace quillon::test {

bool ConnectToDisplay() {
  return gtk_init_check(nullptr, nullptr) != FALSE;
}

}  // namespace quillon::test
