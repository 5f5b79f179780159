#pragma once

namespace quillon {

/// Closes the pop-up menu that the program has open, as Esc does.
void CloseOpenMenu();

}  // namespace quillon
