#pragma once

#include <gio/gio.h>

#include <memory>
#include <string>
#include <string_view>

namespace quillon {

struct UnrefObject {
  void operator()(gpointer object) const { g_object_unref(object); }
};

/// A connection of one's own: closing it gives back the names that it owns.
using BusConnection = std::unique_ptr<GDBusConnection, UnrefObject>;

/// The session bus's address: of `fromEnvironment` ($DBUS_SESSION_BUS_ADDRESS) what can be connected to without
/// starting a bus, else the socket "bus" in `runtimeFolder` ($XDG_RUNTIME_DIR). Empty: there is no session bus.
[[nodiscard]] std::string SessionBusAddress(const std::string& fromEnvironment, const std::string& runtimeFolder);

/// Null when there is no bus or it does not answer soon. Never starts one.
[[nodiscard]] BusConnection ConnectToSessionBus();

/// `text` as a part of a bus name: every byte but an ASCII letter or digit, and a digit in front, becomes "_" and two
/// hexadecimal digits. Different texts stay different.
[[nodiscard]] std::string BusNamePart(std::string_view text);

/// The display that windows appear on, from $DISPLAY and $WAYLAND_DISPLAY. The X server wins when there are both, and
/// the screen's number (":0.1") is left out.
[[nodiscard]] std::string DisplayName(const std::string& x11, const std::string& wayland);

/// An environment variable, empty when it is not set.
[[nodiscard]] std::string EnvironmentText(const char* name);

}  // namespace quillon
