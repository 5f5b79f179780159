#pragma once

#include <gdk-pixbuf/gdk-pixbuf.h>

#include "platform/desktop/FileIcon.h"

namespace quillon {

/// A copy, opaque where the picture has no alpha.
[[nodiscard]] Pixels PixelsOfPixbuf(const GdkPixbuf* pixbuf);

}  // namespace quillon
