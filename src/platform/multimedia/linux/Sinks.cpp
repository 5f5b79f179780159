#include "platform/multimedia/linux/Sinks.h"

#include <gst/video/gstvideometa.h>
#include <gst/video/video.h>
#include <gst/video/videooverlay.h>

#include <initializer_list>
#include <utility>

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

/// Keeps a picture's memory readable while somebody uses its pixels.
struct MappedPicture {
  explicit MappedPicture(GstBuffer* shared) : buffer(gst_buffer_ref(shared)) {
    mapped = gst_buffer_map(buffer, &map, GST_MAP_READ) != FALSE;
  }
  MappedPicture(const MappedPicture&) = delete;
  MappedPicture& operator=(const MappedPicture&) = delete;
  ~MappedPicture() {
    if (mapped) gst_buffer_unmap(buffer, &map);
    gst_buffer_unref(buffer);
  }

  GstBuffer* buffer;
  GstMapInfo map = GST_MAP_INFO_INIT;
  bool mapped = false;
};

using SharedCanvas = std::shared_ptr<PictureCanvas>;

void PassOn(GstElement* /*sink*/, GstBuffer* buffer, GstPad* pad, const SharedCanvas* canvas) {
  const GstOwned<GstCaps> caps(gst_pad_get_current_caps(pad));
  GstVideoInfo info;
  if (!caps || gst_video_info_from_caps(&info, caps.get()) == FALSE) return;
  const auto picture = std::make_shared<MappedPicture>(buffer);
  const GstVideoMeta* const meta = gst_buffer_get_video_meta(buffer);
  const gsize offset = meta != nullptr ? meta->offset[0] : GST_VIDEO_INFO_PLANE_OFFSET(&info, 0);
  const gint row = meta != nullptr ? meta->stride[0] : GST_VIDEO_INFO_PLANE_STRIDE(&info, 0);
  const gsize needed = offset + static_cast<gsize>(row) * static_cast<gsize>(GST_VIDEO_INFO_HEIGHT(&info));
  if (!picture->mapped || row <= 0 || picture->map.size < needed) return;
  (*canvas)->Show({GST_VIDEO_INFO_WIDTH(&info), GST_VIDEO_INFO_HEIGHT(&info), row,
                   std::shared_ptr<const std::uint8_t>(picture, picture->map.data + offset)});
}

void ForgetCanvas(gpointer canvas, GClosure* /*closure*/) {
  const std::unique_ptr<SharedCanvas> gone(static_cast<SharedCanvas*>(canvas));
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

GstElement* MakeCanvasSink(const std::shared_ptr<PictureCanvas>& canvas) {
  // The pixels of PictureFrame. Late pictures are dropped, as other picture sinks do.
  constexpr const char* kPipeline =
      G_BYTE_ORDER == G_LITTLE_ENDIAN
          ? "capsfilter caps=video/x-raw,format=BGRx ! fakesink name=last sync=true qos=true max-lateness=20000000"
          : "capsfilter caps=video/x-raw,format=xRGB ! fakesink name=last sync=true qos=true max-lateness=20000000";
  GstElement* const bin = gst_parse_bin_from_description(kPipeline, TRUE, nullptr);
  if (bin == nullptr) return MakeSilentSink();
  const GstOwned<GstElement> last(gst_bin_get_by_name(GST_BIN(bin), "last"));
  g_object_set(last.get(), "signal-handoffs", TRUE, nullptr);
  for (const char* const signal : {"handoff", "preroll-handoff"}) {
    g_signal_connect_data(last.get(), signal, G_CALLBACK(PassOn), std::make_unique<SharedCanvas>(canvas).release(),
                          ForgetCanvas, GConnectFlags{});
  }
  return bin;
}

}  // namespace quillon
