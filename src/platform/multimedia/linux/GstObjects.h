#pragma once

#include <gst/gst.h>

#include <memory>

namespace quillon {

struct UnrefGst {
  void operator()(gpointer object) const { gst_object_unref(object); }
  void operator()(GstMessage* message) const { gst_message_unref(message); }
  void operator()(GstCaps* caps) const { gst_caps_unref(caps); }
};

/// An owned reference to an element, pad, bus, message or caps.
template <class Type>
using GstOwned = std::unique_ptr<Type, UnrefGst>;

/// Initialises GStreamer; false on failure. The first call finds the plug-ins: that takes seconds if they have never
/// been registered before, otherwise a few milliseconds.
[[nodiscard]] bool StartGStreamer();

}  // namespace quillon
