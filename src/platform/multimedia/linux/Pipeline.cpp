#include "platform/multimedia/linux/Pipeline.h"

#include <gst/video/gstvideodecoder.h>
#include <gst/video/video.h>
#include <gst/video/videooverlay.h>

#include <algorithm>

#include "platform/multimedia/linux/Sinks.h"

namespace quillon {
namespace {

// GstPlayFlags is not in the installed headers.
constexpr unsigned kPictures = 1U << 0U;
constexpr unsigned kSound = 1U << 1U;

int Milliseconds(gint64 nanoseconds) {
  constexpr gint64 kMost = G_MAXINT32;
  constexpr auto kMillisecond = static_cast<gint64>(GST_MSECOND);
  const gint64 rounded = nanoseconds / kMillisecond + (nanoseconds % kMillisecond >= kMillisecond / 2 ? 1 : 0);
  return static_cast<int>(std::min(rounded, kMost));
}

/// Stretches the picture to fill its window; by default the player would add black borders to keep its shape.
void OnElement(GstElement* /*player*/, GstElement* element, gpointer /*data*/) {
  constexpr const char* kBorders = "add-borders";
  if (g_object_class_find_property(G_OBJECT_GET_CLASS(element), kBorders) != nullptr) {
    g_object_set(element, kBorders, FALSE, nullptr);
  }
}

bool IsIn(GstObject* object, GstElement* element) {
  return element != nullptr && gst_object_has_as_ancestor(object, GST_OBJECT(element)) != FALSE;
}

}  // namespace

Pipeline::Pipeline(const std::string& path)
    : player_(GST_ELEMENT(gst_object_ref_sink(gst_element_factory_make("playbin", nullptr)))),
      bus_(gst_element_get_bus(player_.get())) {
  char* const uri = g_filename_to_uri(path.c_str(), nullptr, nullptr);
  g_object_set(player_.get(), "uri", uri, "flags", kPictures | kSound, nullptr);
  g_free(uri);
  g_signal_connect(player_.get(), "element-setup", G_CALLBACK(OnElement), nullptr);
  UseSinks(MakeSilentSink(), MakeSilentSink());
}

Pipeline::~Pipeline() {
  gst_element_set_state(player_.get(), GST_STATE_NULL);
}

void Pipeline::UseSinks(GstElement* sound, GstElement* picture) {
  // NULL instead of READY, so that a sink that has lost its device releases it.
  gst_element_set_state(player_.get(), GST_STATE_NULL);
  g_object_set(player_.get(), "audio-sink", sound, "video-sink", picture, nullptr);
  sound_ = sound;
  picture_ = picture;
  hasRun_ = false;
}

Pipeline::Event Pipeline::Prepare(std::chrono::milliseconds limit) {
  constexpr auto kTypes = static_cast<GstMessageType>(GST_MESSAGE_ASYNC_DONE | GST_MESSAGE_ERROR | GST_MESSAGE_EOS);
  const bool refused = gst_element_set_state(player_.get(), GST_STATE_PAUSED) == GST_STATE_CHANGE_FAILURE;
  const std::chrono::nanoseconds wait = refused ? std::chrono::milliseconds(0) : limit;
  const GstOwned<GstMessage> message(
      gst_bus_timed_pop_filtered(bus_.get(), static_cast<GstClockTime>(wait.count()), kTypes));
  if (!message || GST_MESSAGE_TYPE(message.get()) == GST_MESSAGE_EOS) return Event::kFailed;
  return GST_MESSAGE_TYPE(message.get()) == GST_MESSAGE_ERROR ? EventOf(message.get()) : Event::kNone;
}

void Pipeline::Run() {
  hasRun_ = true;
  gst_element_set_state(player_.get(), GST_STATE_PLAYING);
}

void Pipeline::Hold() {
  gst_element_set_state(player_.get(), GST_STATE_PAUSED);
}

void Pipeline::Settle() {
  constexpr GstClockTime kPatience = GST_SECOND;
  gst_element_get_state(player_.get(), nullptr, nullptr, kPatience);
}

// Restarts the sound sink so that it gets a new stream. PulseAudio's library miscounts the time of a stream that was
// flushed after playing: sound would be written far into the future, the server would stop accepting it, and its end
// would never be reported.
void Pipeline::RenewSound() {
  if (!hasRun_ || !HasSound()) return;
  hasRun_ = false;
  gst_element_set_state(sound_, GST_STATE_READY);
  gst_element_set_state(sound_, GST_STATE_PAUSED);
}

// Waits first: a seek during a state change, after a pause or another seek, would be lost.
bool Pipeline::Seek(std::int64_t milliseconds) {
  Settle();
  RenewSound();
  constexpr auto kFlags = static_cast<GstSeekFlags>(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_ACCURATE);
  const gint64 position = milliseconds * static_cast<gint64>(GST_MSECOND);
  const bool done = gst_element_seek_simple(player_.get(), GST_FORMAT_TIME, kFlags, position) != FALSE;
  Settle();
  return done;
}

void Pipeline::Redraw() {
  gst_video_overlay_expose(GST_VIDEO_OVERLAY(player_.get()));
}

std::optional<int> Pipeline::Length() const {
  gint64 length = 0;
  if (gst_element_query_duration(player_.get(), GST_FORMAT_TIME, &length) == FALSE || length <= 0) return std::nullopt;
  return Milliseconds(length);
}

std::optional<int> Pipeline::Position() const {
  gint64 position = 0;
  if (gst_element_query_position(player_.get(), GST_FORMAT_TIME, &position) == FALSE || position < 0) {
    return std::nullopt;
  }
  return Milliseconds(position);
}

bool Pipeline::HasSound() const {
  gint streams = 0;
  g_object_get(player_.get(), "n-audio", &streams, nullptr);
  return streams > 0;
}

std::optional<PictureSize> Pipeline::Picture() const {
  const GstOwned<GstPad> pad(gst_element_get_static_pad(picture_, "sink"));
  const GstOwned<GstCaps> caps(pad ? gst_pad_get_current_caps(pad.get()) : nullptr);
  GstVideoInfo info;
  if (!caps || gst_video_info_from_caps(&info, caps.get()) == FALSE) return std::nullopt;
  return PictureSize{GST_VIDEO_INFO_WIDTH(&info), GST_VIDEO_INFO_HEIGHT(&info)};
}

Pipeline::Event Pipeline::EventOf(GstMessage* message) const {
  if (GST_MESSAGE_TYPE(message) == GST_MESSAGE_EOS) return Event::kEnded;
  if (IsIn(GST_MESSAGE_SRC(message), sound_)) return Event::kSoundLost;
  if (IsIn(GST_MESSAGE_SRC(message), picture_)) return Event::kPictureLost;
  return GST_IS_VIDEO_DECODER(GST_MESSAGE_SRC(message)) ? Event::kNoPictureLeft : Event::kFailed;
}

Pipeline::Event Pipeline::NextEvent() {
  constexpr auto kTypes = static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR | GST_MESSAGE_CLOCK_LOST);
  for (;;) {
    const GstOwned<GstMessage> message(gst_bus_pop_filtered(bus_.get(), kTypes));
    if (!message) return Event::kNone;
    if (GST_MESSAGE_TYPE(message.get()) != GST_MESSAGE_CLOCK_LOST) return EventOf(message.get());
    // A new clock is selected by this change of state.
    Hold();
    Run();
  }
}

}  // namespace quillon
