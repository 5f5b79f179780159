#pragma once

#include <string>

namespace quillon {

/// Passes a later instance's startup id to GDK. The id contains the time at which the user started that instance;
/// without it a window manager may refuse to bring the window to the front. Does nothing for an empty id.
void UseStartupId(const std::string& id);

}  // namespace quillon
