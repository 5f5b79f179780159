#pragma once

#include <gdk-pixbuf/gdk-pixbuf.h>

#include "platform/desktop/FileIcon.h"

namespace quillon {

/// Copies the picture; opaque when it has no alpha channel.
[[nodiscard]] Pixels PixelsOfPixbuf(const GdkPixbuf* pixbuf);

}  // namespace quillon
