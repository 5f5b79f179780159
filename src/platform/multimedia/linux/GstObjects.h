#pragma once

#include <gst/gst.h>

#include <memory>

namespace quillon {

struct UnrefGst {
  void operator()(gpointer object) const { gst_object_unref(object); }
  void operator()(GstMessage* message) const { gst_message_unref(message); }
  void operator()(GstCaps* caps) const { gst_caps_unref(caps); }
};

/// A reference of one's own to an element, pad, bus, message or caps.
template <class Type>
using GstOwned = std::unique_ptr<Type, UnrefGst>;

/// The first call finds the plug-ins, which takes seconds where they have never been listed before, else a few
/// milliseconds. False when GStreamer does not start.
[[nodiscard]] bool StartGStreamer();

}  // namespace quillon
