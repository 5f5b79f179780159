#include "platform/desktop/linux/SessionBus.h"

#include <sys/stat.h>

#include "base/Text.h"

namespace quillon {
namespace {

/// A local bus answers within a millisecond or two. One that takes longer than this is treated as missing.
constexpr guint kMostMilliseconds = 1000;

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsSocket(const std::string& path) {
  struct stat status = {};
  return ::stat(path.c_str(), &status) == 0 && S_ISSOCK(status.st_mode);
}

/// The result of connecting, which runs on one of GIO's threads.
struct Connecting {
  bool done = false;
  GDBusConnection* connection = nullptr;
};

void OnConnected(GObject* /*source*/, GAsyncResult* result, gpointer data) {
  auto* const connecting = static_cast<Connecting*>(data);
  connecting->connection = g_dbus_connection_new_for_address_finish(result, nullptr);
  connecting->done = true;
}

gboolean OnTooLate(gpointer data) {
  g_cancellable_cancel(static_cast<GCancellable*>(data));
  return G_SOURCE_REMOVE;
}

/// Waits in a separate main context, so that none of the program's own events are handled meanwhile.
BusConnection Connect(const std::string& address) {
  GMainContext* const context = g_main_context_new();
  GCancellable* const cancellable = g_cancellable_new();
  GSource* const timer = g_timeout_source_new(kMostMilliseconds);
  g_source_set_callback(timer, OnTooLate, cancellable, nullptr);
  g_source_attach(timer, context);
  g_main_context_push_thread_default(context);
  Connecting connecting;
  const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                       G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
  g_dbus_connection_new_for_address(address.c_str(), flags, nullptr, cancellable, OnConnected, &connecting);
  while (!connecting.done) g_main_context_iteration(context, TRUE);
  g_main_context_pop_thread_default(context);
  g_source_destroy(timer);
  g_source_unref(timer);
  g_object_unref(cancellable);
  g_main_context_unref(context);
  return BusConnection(connecting.connection);
}

}  // namespace

std::string SessionBusAddress(const std::string& fromEnvironment, const std::string& runtimeFolder) {
  std::string address;
  for (const std::string_view way : Split(fromEnvironment, ';')) {
    // "autolaunch:" would start another bus, without other programs on it.
    if (way.empty() || way.starts_with("autolaunch:")) continue;
    if (!address.empty()) address += ';';
    address += way;
  }
  if (!address.empty()) return address;
  const std::string path = runtimeFolder + "/bus";
  if (runtimeFolder.empty() || !IsSocket(path)) return {};
  char* const escaped = g_dbus_address_escape_value(path.c_str());
  address = std::string("unix:path=") + escaped;
  g_free(escaped);
  return address;
}

BusConnection ConnectToSessionBus() {
  const std::string address =
      SessionBusAddress(EnvironmentText("DBUS_SESSION_BUS_ADDRESS"), EnvironmentText("XDG_RUNTIME_DIR"));
  return address.empty() ? nullptr : Connect(address);
}

std::string BusNamePart(std::string_view text) {
  constexpr std::string_view kHex = "0123456789abcdef";
  std::string part;
  for (const char c : text) {
    if (IsLetter(c) || (IsDigit(c) && !part.empty())) {
      part += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    part += '_';
    part += kHex[byte >> 4u];
    part += kHex[byte & 15u];
  }
  return part.empty() ? "_" : part;
}

std::string DisplayName(const std::string& x11, const std::string& wayland) {
  if (x11.empty()) return wayland;
  const std::size_t colon = x11.rfind(':');
  if (colon == std::string::npos) return x11;
  return x11.substr(0, x11.find('.', colon));
}

std::string EnvironmentText(const char* name) {
  const char* const text = g_getenv(name);
  return text == nullptr ? std::string() : std::string(text);
}

}  // namespace quillon
