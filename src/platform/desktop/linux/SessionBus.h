#pragma once

#include <gio/gio.h>

#include <memory>
#include <string>
#include <string_view>

namespace quillon {

struct UnrefObject {
  void operator()(gpointer object) const { g_object_unref(object); }
};

/// A private connection: closing it releases the names that it owns.
using BusConnection = std::unique_ptr<GDBusConnection, UnrefObject>;

/// The session bus's address: the parts of `fromEnvironment` ($DBUS_SESSION_BUS_ADDRESS) that do not start a bus, else
/// the socket "bus" in `runtimeFolder` ($XDG_RUNTIME_DIR). Empty when there is no session bus.
[[nodiscard]] std::string SessionBusAddress(const std::string& fromEnvironment, const std::string& runtimeFolder);

/// Returns null when there is no bus or it does not answer soon. Never starts a bus.
[[nodiscard]] BusConnection ConnectToSessionBus();

/// Encodes `text` as a part of a bus name: every byte except ASCII letters and digits, and a leading digit, becomes "_"
/// and two hexadecimal digits. Different texts give different names.
[[nodiscard]] std::string BusNamePart(std::string_view text);

/// The name of the display on which windows appear, from $DISPLAY and $WAYLAND_DISPLAY. The X server has priority, and
/// the screen's number (":0.1") is removed.
[[nodiscard]] std::string DisplayName(const std::string& x11, const std::string& wayland);

/// An environment variable, empty when it is not set.
[[nodiscard]] std::string EnvironmentText(const char* name);

}  // namespace quillon
