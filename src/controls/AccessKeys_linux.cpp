#include "controls/AccessKeys.h"

namespace quillon {

void ReachByAccessKeys(wxDialog&) {}  // GTK's do

}  // namespace quillon
