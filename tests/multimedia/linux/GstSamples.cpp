#include "multimedia/linux/GstSamples.h"

#include <gtest/gtest.h>

#include "platform/multimedia/linux/GstObjects.h"

namespace quillon::test {
namespace {

constexpr int kPictureMilliseconds = 40;
constexpr int kSoundBlockMilliseconds = 20;

std::string Pictures(int milliseconds) {
  return "videotestsrc pattern=smpte num-buffers=" + std::to_string(milliseconds / kPictureMilliseconds) +
         " ! video/x-raw,format=I420,width=320,height=240,framerate=25/1 ! videoconvert ! ";
}

std::string Sound(int milliseconds) {
  return "audiotestsrc samplesperbuffer=882 num-buffers=" + std::to_string(milliseconds / kSoundBlockMilliseconds) +
         " ! audio/x-raw,format=S16LE,rate=44100,channels=2 ! audioconvert ! ";
}

std::string Encoder(AviCodec codec) {
  switch (codec) {
    case AviCodec::kMpeg4: return "avenc_mpeg4 bitrate=1000000";
    case AviCodec::kMotionJpeg: return "jpegenc";
    case AviCodec::kUncompressed: return "video/x-raw,format=BGR";
  }
  return {};
}

/// Runs a pipeline with a file sink named "out" to its end.
void Make(const std::string& path, const std::string& pipeline) {
  ASSERT_TRUE(StartGStreamer());
  const GstOwned<GstElement> made(gst_parse_launch(pipeline.c_str(), nullptr));
  ASSERT_TRUE(made) << "an encoder is missing: " << pipeline;
  const GstOwned<GstElement> out(gst_bin_get_by_name(GST_BIN(made.get()), "out"));
  g_object_set(out.get(), "location", path.c_str(), nullptr);
  gst_element_set_state(made.get(), GST_STATE_PLAYING);
  const GstOwned<GstBus> bus(gst_element_get_bus(made.get()));
  constexpr auto kTypes = static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR);
  const GstOwned<GstMessage> message(gst_bus_timed_pop_filtered(bus.get(), 20 * GST_SECOND, kTypes));
  gst_element_set_state(made.get(), GST_STATE_NULL);
  ASSERT_TRUE(message && GST_MESSAGE_TYPE(message.get()) == GST_MESSAGE_EOS) << pipeline;
}

}  // namespace

void MakeMpeg(const std::string& path, int milliseconds) {
  Make(path, Pictures(milliseconds) + "mpeg2enc format=0 ! mpegvideoparse ! queue ! out_mux. " + Sound(milliseconds) +
                 "avenc_mp2 ! mpegaudioparse ! queue ! out_mux. avmux_mpeg name=out_mux ! filesink name=out");
}

void MakeMpegPictures(const std::string& path, int milliseconds) {
  Make(path, Pictures(milliseconds) + "mpeg2enc format=0 ! filesink name=out");
}

void MakeAvi(const std::string& path, int milliseconds, AviCodec codec) {
  Make(path, Pictures(milliseconds) + Encoder(codec) + " ! queue ! out_mux. " + Sound(milliseconds) +
                 "queue ! out_mux. avimux name=out_mux ! filesink name=out");
}

}  // namespace quillon::test
