#include "multimedia/linux/FailingSoundSink.h"

#include <gtest/gtest.h>

#include <atomic>

#include "platform/multimedia/linux/GstObjects.h"

namespace quillon::test {
namespace {

constexpr const char* kReplacedName = "pulsesink";
constexpr int kGoodBlocks = 2;

// The elements are GStreamer's, and fail on its threads.
std::atomic<int>& FailureCount() {
  static std::atomic<int> count;
  return count;
}

GstPadProbeReturn OnBlock(GstPad* pad, GstPadProbeInfo* info, gpointer blocksLeft) {
  if ((*static_cast<int*>(blocksLeft))-- > 0) return GST_PAD_PROBE_OK;
  ++FailureCount();
  GstElement* const sink = GST_PAD_PARENT(pad);
  if (g_object_get_data(G_OBJECT(sink), "blames-itself") != nullptr) {
    GST_ELEMENT_ERROR(sink, RESOURCE, NOT_FOUND, ("The device is gone."), (nullptr));
  }
  gst_buffer_unref(GST_PAD_PROBE_INFO_BUFFER(info));
  info->data = nullptr;
  GST_PAD_PROBE_INFO_FLOW_RETURN(info) = GST_FLOW_ERROR;
  return GST_PAD_PROBE_HANDLED;
}

void InitializeSink(GTypeInstance* instance, gpointer /*type*/) {
  g_object_set(instance, "sync", TRUE, nullptr);
  int* const blocksLeft = g_new(int, 1);
  *blocksLeft = kGoodBlocks;
  const GstOwned<GstPad> pad(gst_element_get_static_pad(GST_ELEMENT(instance), "sink"));
  gst_pad_add_probe(pad.get(), GST_PAD_PROBE_TYPE_BUFFER, OnBlock, blocksLeft, g_free);
}

void InitializeBlamingSink(GTypeInstance* instance, gpointer type) {
  InitializeSink(instance, type);
  g_object_set_data(G_OBJECT(instance), "blames-itself", GINT_TO_POINTER(1));
}

/// A kind of GStreamer's silent sink.
GType MakeType(const char* name, GInstanceInitFunc initialize) {
  const GstOwned<GstElement> silent(GST_ELEMENT(gst_object_ref_sink(gst_element_factory_make("fakesink", nullptr))));
  GTypeQuery parent = {};
  g_type_query(G_OBJECT_TYPE(silent.get()), &parent);
  return g_type_register_static_simple(parent.type, name, static_cast<guint>(parent.class_size), nullptr,
                                       static_cast<guint>(parent.instance_size), initialize, GTypeFlags());
}

GType TypeOf(FailingSoundSink::Blames blames) {
  static const GType itself = MakeType("QuillonBlamingSink", InitializeBlamingSink);
  static const GType stream = MakeType("QuillonRefusingSink", InitializeSink);
  return blames == FailingSoundSink::Blames::kItself ? itself : stream;
}

}  // namespace

FailingSoundSink::FailingSoundSink(Blames blames) {
  FailureCount() = 0;
  EXPECT_TRUE(StartGStreamer());
  replaced_ = gst_registry_lookup_feature(gst_registry_get(), kReplacedName);
  EXPECT_TRUE(gst_element_register(nullptr, kReplacedName, GST_RANK_NONE, TypeOf(blames)));
}

FailingSoundSink::~FailingSoundSink() {
  GstRegistry* const registry = gst_registry_get();
  const GstOwned<GstPluginFeature> own(gst_registry_lookup_feature(registry, kReplacedName));
  if (own) gst_registry_remove_feature(registry, own.get());
  if (replaced_ == nullptr) return;
  gst_registry_add_feature(registry, GST_PLUGIN_FEATURE(replaced_));
  gst_object_unref(replaced_);
}

int FailingSoundSink::Failures() const {
  return FailureCount();
}

}  // namespace quillon::test
