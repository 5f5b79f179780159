#pragma once

#include <string>

namespace quillon {

/// A window manager keeps a window that asks for the front in the back when the person has done something since. The id
/// that a later instance was started with tells when that was; GDK hands the time on. Does nothing for an empty id.
void UseStartupId(const std::string& id);

}  // namespace quillon
