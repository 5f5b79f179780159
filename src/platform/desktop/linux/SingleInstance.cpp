#include "platform/desktop/SingleInstance.h"

#include <gdk/gdk.h>
#include <gdk/gdkx.h>

#include <utility>

#include "platform/desktop/linux/SessionBus.h"

namespace quillon {
namespace {

/// A first instance that is busy this long learns of the later one when it is free again.
constexpr int kMostMilliseconds = 2000;

constexpr const char* kObject = "/io/github/quillon/Quillon";
constexpr const char* kInterface = "org.freedesktop.Application";
/// The part that we answer of the desktop's own interface for programs that run once.
constexpr const char* kDescription =
    "<node><interface name='org.freedesktop.Application'>"
    "<method name='Activate'><arg name='platform_data' type='a{sv}' direction='in'/></method>"
    "</interface></node>";
constexpr const char* kStartupKey = "desktop-startup-id";

std::string BusName(const std::string& title) {
  const std::string display = DisplayName(EnvironmentText("DISPLAY"), EnvironmentText("WAYLAND_DISPLAY"));
  return "io.github.quillon." + BusNamePart(title) + ".display_" + BusNamePart(display);
}

/// A window manager keeps a window that asks for the front in the back when the person has done something since. The id
/// that the later instance was started with tells when that was; GDK hands the time on.
void UseStartupTime(GVariant* parameters) {
  GVariant* const data = g_variant_get_child_value(parameters, 0);
  const char* id = nullptr;
  GdkDisplay* const display = gdk_display_get_default();
  if (display != nullptr && GDK_IS_X11_DISPLAY(display) && g_variant_lookup(data, kStartupKey, "&s", &id) != FALSE) {
    gdk_x11_display_set_startup_notification_id(display, id);
  }
  g_variant_unref(data);
}

class BusInstance final : public SingleInstance {
 public:
  BusInstance(const std::string& title, BusConnection bus)
      : name_(BusName(title)), startupId_(EnvironmentText("DESKTOP_STARTUP_ID")), bus_(std::move(bus)) {
    if (bus_ == nullptr) return;
    // In this order, so that whoever finds the name is answered.
    Register();
    first_ = OwnsName();
  }
  BusInstance(const BusInstance&) = delete;
  BusInstance& operator=(const BusInstance&) = delete;
  ~BusInstance() override {
    if (bus_ == nullptr) return;
    if (registration_ != 0) g_dbus_connection_unregister_object(bus_.get(), registration_);
    g_dbus_connection_close_sync(bus_.get(), nullptr, nullptr);
  }

  [[nodiscard]] bool IsFirst() const override { return first_; }

  void BringFirstForward() override {
    if (first_) return;
    GVariantBuilder data;
    g_variant_builder_init(&data, G_VARIANT_TYPE("a{sv}"));
    if (!startupId_.empty() && g_utf8_validate(startupId_.c_str(), -1, nullptr) != FALSE) {
      g_variant_builder_add(&data, "{sv}", kStartupKey, g_variant_new_string(startupId_.c_str()));
    }
    Call(name_.c_str(), kObject, kInterface, "Activate", g_variant_new("(a{sv})", &data));
  }

  void OnRaise(std::function<void()> raise) override { raise_ = std::move(raise); }

 private:
  void Register() {
    static const GDBusInterfaceVTable kTable = {&BusInstance::OnCall, nullptr, nullptr, {nullptr}};
    GDBusNodeInfo* const node = g_dbus_node_info_new_for_xml(kDescription, nullptr);
    registration_ =
        g_dbus_connection_register_object(bus_.get(), kObject, node->interfaces[0], &kTable, this, nullptr, nullptr);
    g_dbus_node_info_unref(node);
  }

  /// When the bus refuses to say, there is no other instance either.
  [[nodiscard]] bool OwnsName() {
    constexpr guint kDoNotQueue = 4;
    constexpr guint kOwnedByAnother = 3;
    GVariant* const answer = Call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                  "RequestName", g_variant_new("(su)", name_.c_str(), kDoNotQueue));
    if (answer == nullptr) return true;
    guint code = 0;
    g_variant_get(answer, "(u)", &code);
    g_variant_unref(answer);
    return code != kOwnedByAnother;
  }

  /// Null for a failure. Takes over `parameters`.
  GVariant* Call(const char* name, const char* object, const char* interface, const char* method,
                 GVariant* parameters) {
    return g_dbus_connection_call_sync(bus_.get(), name, object, interface, method, parameters, nullptr,
                                       G_DBUS_CALL_FLAGS_NO_AUTO_START, kMostMilliseconds, nullptr, nullptr);
  }

  static void OnCall(GDBusConnection* /*bus*/, const char* /*sender*/, const char* /*object*/,
                     const char* /*interface*/, const char* /*method*/, GVariant* parameters,
                     GDBusMethodInvocation* invocation, gpointer self) {
    UseStartupTime(parameters);
    // The answer goes first: `raise` may stay in a message loop of its own.
    g_dbus_method_invocation_return_value(invocation, nullptr);
    const std::function<void()> raise = static_cast<BusInstance*>(self)->raise_;
    if (raise) raise();
  }

  std::string name_;
  std::string startupId_;
  BusConnection bus_;
  guint registration_ = 0;
  bool first_ = true;
  std::function<void()> raise_;
};

}  // namespace

std::unique_ptr<SingleInstance> MakeSingleInstance(const std::string& title, const std::string& /*windowClass*/) {
  return std::make_unique<BusInstance>(title, ConnectToSessionBus());
}

}  // namespace quillon
