#include "controls/AccessKeys.h"

namespace quillon {

void ReachByAccessKeys(wxWindow&) {}  // GTK's access keys do so already

}  // namespace quillon
