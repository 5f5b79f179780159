#include "platform/multimedia/linux/Sinks.h"

#include <gst/video/videooverlay.h>

#include <initializer_list>

namespace quillon {
namespace {

/// The first of the named elements that can open its device; null when none can.
GstElement* FirstReady(std::initializer_list<const char*> names) {
  for (const char* const name : names) {
    GstElement* const element = gst_element_factory_make(name, nullptr);
    if (element == nullptr) continue;
    const bool ready = gst_element_set_state(element, GST_STATE_READY) != GST_STATE_CHANGE_FAILURE;
    gst_element_set_state(element, GST_STATE_NULL);
    if (ready) return element;
    gst_object_unref(gst_object_ref_sink(element));
  }
  return nullptr;
}

}  // namespace

GstElement* MakeSilentSink() {
  GstElement* const sink = gst_element_factory_make("fakesink", nullptr);
  if (sink != nullptr) g_object_set(sink, "sync", TRUE, nullptr);
  return sink;
}

GstElement* MakeSoundSink() {
  GstElement* const sink = FirstReady({"pulsesink", "alsasink"});
  if (sink == nullptr) return MakeSilentSink();
  // A sound server's clock may stop after a seek, which would stop the whole pipeline.
  g_object_set(sink, "provide-clock", FALSE, nullptr);
  return sink;
}

GstElement* MakePictureSink(std::uint64_t window) {
  GstElement* const sink = FirstReady({"xvimagesink", "ximagesink"});
  if (sink == nullptr) return MakeSilentSink();
  g_object_set(sink, "force-aspect-ratio", FALSE, nullptr);
  // With its own events the sink redraws uncovered parts and follows the window's size. It receives no clicks.
  gst_video_overlay_handle_events(GST_VIDEO_OVERLAY(sink), TRUE);
  gst_video_overlay_set_window_handle(GST_VIDEO_OVERLAY(sink), static_cast<guintptr>(window));
  return sink;
}

}  // namespace quillon
