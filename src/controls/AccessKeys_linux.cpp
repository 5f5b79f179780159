#include "controls/AccessKeys.h"

namespace quillon {

void ReachByAccessKeys(wxWindow&) {}  // GTK's do

}  // namespace quillon
