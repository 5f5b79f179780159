#include "multimedia/linux/FailingSoundSink.h"

#include <gtest/gtest.h>

#include <atomic>

#include "platform/multimedia/linux/GstObjects.h"

namespace quillon::test {
namespace {

constexpr const char* kReplacedName = "pulsesink";
constexpr int kGoodBlocks = 2;

// Atomic, because the elements fail on GStreamer's threads.
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

constexpr const char* kHasPlayed = "has-played";
constexpr const char* kNeverEnds = "never-ends";

void Mark(gpointer sink, const char* key, bool value) {
  g_object_set_data(G_OBJECT(sink), key, GINT_TO_POINTER(value ? 1 : 0));
}

bool IsMarked(gpointer sink, const char* key) {
  return g_object_get_data(G_OBJECT(sink), key) != nullptr;
}

GstPadProbeReturn OnEvent(GstPad* pad, GstPadProbeInfo* info, gpointer /*data*/) {
  GstElement* const sink = GST_PAD_PARENT(pad);
  const GstEventType type = GST_EVENT_TYPE(GST_PAD_PROBE_INFO_EVENT(info));
  if (type == GST_EVENT_FLUSH_STOP && IsMarked(sink, kHasPlayed)) Mark(sink, kNeverEnds, true);
  if (type != GST_EVENT_EOS || !IsMarked(sink, kNeverEnds)) return GST_PAD_PROBE_OK;
  ++FailureCount();
  return GST_PAD_PROBE_DROP;
}

GstStateChangeReturn ChangeState(GstElement* sink, GstStateChange change) {
  if (change == GST_STATE_CHANGE_PAUSED_TO_PLAYING) Mark(sink, kHasPlayed, true);
  if (change == GST_STATE_CHANGE_READY_TO_PAUSED) {
    Mark(sink, kHasPlayed, false);
    Mark(sink, kNeverEnds, false);
  }
  auto* const parent = static_cast<GstElementClass*>(g_type_class_peek_parent(G_OBJECT_GET_CLASS(sink)));
  return parent->change_state(sink, change);
}

void InitializeEndlessClass(gpointer type, gpointer /*data*/) {
  GST_ELEMENT_CLASS(type)->change_state = ChangeState;
}

void InitializeEndlessSink(GTypeInstance* instance, gpointer /*type*/) {
  g_object_set(instance, "sync", TRUE, nullptr);
  constexpr auto kEvents =
      static_cast<GstPadProbeType>(GST_PAD_PROBE_TYPE_EVENT_DOWNSTREAM | GST_PAD_PROBE_TYPE_EVENT_FLUSH);
  const GstOwned<GstPad> pad(gst_element_get_static_pad(GST_ELEMENT(instance), "sink"));
  gst_pad_add_probe(pad.get(), kEvents, OnEvent, nullptr, nullptr);
}

/// Registers a variant of GStreamer's silent sink until the program ends, because its class stays bound to the factory
/// of its first element.
GstPluginFeature* MakeFactory(const char* name, GInstanceInitFunc initialize,
                              GClassInitFunc initializeClass = nullptr) {
  const GstOwned<GstElement> silent(GST_ELEMENT(gst_object_ref_sink(gst_element_factory_make("fakesink", nullptr))));
  GTypeQuery parent = {};
  g_type_query(G_OBJECT_TYPE(silent.get()), &parent);
  const GType type =
      g_type_register_static_simple(parent.type, name, static_cast<guint>(parent.class_size), initializeClass,
                                    static_cast<guint>(parent.instance_size), initialize, GTypeFlags());
  EXPECT_TRUE(gst_element_register(nullptr, kReplacedName, GST_RANK_NONE, type));
  return gst_registry_lookup_feature(gst_registry_get(), kReplacedName);
}

GstPluginFeature* FactoryOf(FailingSoundSink::Blames blames) {
  switch (blames) {
    case FailingSoundSink::Blames::kItself: {
      static GstPluginFeature* const itself = MakeFactory("QuillonBlamingSink", InitializeBlamingSink);
      return itself;
    }
    case FailingSoundSink::Blames::kStream: {
      static GstPluginFeature* const stream = MakeFactory("QuillonRefusingSink", InitializeSink);
      return stream;
    }
    case FailingSoundSink::Blames::kNobody: break;
  }
  static GstPluginFeature* const nobody =
      MakeFactory("QuillonEndlessSink", InitializeEndlessSink, InitializeEndlessClass);
  return nobody;
}

}  // namespace

FailingSoundSink::FailingSoundSink(Blames blames) {
  FailureCount() = 0;
  EXPECT_TRUE(StartGStreamer());
  replaced_ = gst_registry_lookup_feature(gst_registry_get(), kReplacedName);
  EXPECT_TRUE(gst_registry_add_feature(gst_registry_get(), FactoryOf(blames)));
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
