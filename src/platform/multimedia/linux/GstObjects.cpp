#include "platform/multimedia/linux/GstObjects.h"

namespace quillon {
namespace {

/// Disables play lists, which would make the player open other files and network addresses.
void LeaveOutPlayLists() {
  GstRegistry* const registry = gst_registry_get();
  for (const char* const name :
       {"hlsdemux", "hlsdemux2", "dashdemux", "dashdemux2", "mssdemux", "mssdemux2", "sdpdemux"}) {
    const GstOwned<GstPluginFeature> feature(gst_registry_lookup_feature(registry, name));
    if (feature) gst_plugin_feature_set_rank(feature.get(), GST_RANK_NONE);
  }
}

bool Start() {
  GError* error = nullptr;
  const bool started = gst_init_check(nullptr, nullptr, &error) != FALSE;
  g_clear_error(&error);
  if (started) LeaveOutPlayLists();
  return started;
}

}  // namespace

bool StartGStreamer() {
  static const bool started = Start();
  return started;
}

}  // namespace quillon
