#include "platform/desktop/SingleInstance.h"

#include <unistd.h>

#include <utility>

#include "platform/Program.h"
#include "platform/desktop/linux/LockedInstance.h"
#include "platform/desktop/linux/SessionBus.h"
#include "platform/desktop/linux/StartupId.h"

namespace quillon {
namespace {

/// How long to wait for the first instance. If it is busy longer, it handles the request when it is free again.
constexpr int kMostMilliseconds = 2000;

constexpr const char* kObject = "/io/github/quillon/Quillon";
constexpr const char* kInterface = "org.freedesktop.Application";
/// The implemented part of the desktop's standard interface for single-instance programs.
constexpr const char* kDescription =
    "<node><interface name='org.freedesktop.Application'>"
    "<method name='Activate'><arg name='platform_data' type='a{sv}' direction='in'/></method>"
    "</interface></node>";
constexpr const char* kStartupKey = "desktop-startup-id";
constexpr const char* kTokenKey = "activation-token";  // Wayland's

std::string BusName(const std::string& title) {
  const std::string display = DisplayName(EnvironmentText("DISPLAY"), EnvironmentText("WAYLAND_DISPLAY"));
  return "io.github.quillon." + BusNamePart(title) + ".display_" + BusNamePart(display);
}

std::string StartupIdIn(GVariant* parameters) {
  GVariant* const data = g_variant_get_child_value(parameters, 0);
  const char* id = nullptr;
  const bool known =
      g_variant_lookup(data, kTokenKey, "&s", &id) != FALSE || g_variant_lookup(data, kStartupKey, "&s", &id) != FALSE;
  std::string found = known ? id : "";
  g_variant_unref(data);
  return found;
}

/// The desktop's permission to come to the front, as it gave it to this process.
std::string StartupIdOfThisStart() {
  std::string token = EnvironmentText("WAYLAND_DISPLAY").empty() ? "" : EnvironmentText("XDG_ACTIVATION_TOKEN");
  return token.empty() ? EnvironmentText("DESKTOP_STARTUP_ID") : token;
}

class BusInstance final : public SingleInstance {
 public:
  BusInstance(std::string name, std::string startupId, BusConnection bus)
      : name_(std::move(name)), startupId_(std::move(startupId)), bus_(std::move(bus)) {
    // The object is registered first, so that calls are answered as soon as the name exists.
    Register();
    first_ = OwnsName();
  }
  BusInstance(const BusInstance&) = delete;
  BusInstance& operator=(const BusInstance&) = delete;
  ~BusInstance() override {
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

  void OnRaise(std::function<void()> raise) override {
    if (lock_) lock_->OnRaise(raise);
    raise_ = std::move(raise);
  }

  /// Holds the lock that instances without a bus check.
  void Keep(std::unique_ptr<SingleInstance> lock) { lock_ = std::move(lock); }

 private:
  void Register() {
    static const GDBusInterfaceVTable kTable = {&BusInstance::OnCall, nullptr, nullptr, {nullptr}};
    GDBusNodeInfo* const node = g_dbus_node_info_new_for_xml(kDescription, nullptr);
    registration_ =
        g_dbus_connection_register_object(bus_.get(), kObject, node->interfaces[0], &kTable, this, nullptr, nullptr);
    g_dbus_node_info_unref(node);
  }

  /// When the bus does not answer, this instance counts as the first.
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

  /// Returns null on failure. Takes ownership of `parameters`.
  GVariant* Call(const char* name, const char* object, const char* interface, const char* method,
                 GVariant* parameters) {
    return g_dbus_connection_call_sync(bus_.get(), name, object, interface, method, parameters, nullptr,
                                       G_DBUS_CALL_FLAGS_NO_AUTO_START, kMostMilliseconds, nullptr, nullptr);
  }

  static void OnCall(GDBusConnection* /*bus*/, const char* /*sender*/, const char* /*object*/,
                     const char* /*interface*/, const char* /*method*/, GVariant* parameters,
                     GDBusMethodInvocation* invocation, gpointer self) {
    UseStartupId(StartupIdIn(parameters));
    // Answers first, because `raise` may run a nested message loop.
    g_dbus_method_invocation_return_value(invocation, nullptr);
    const std::function<void()> raise = static_cast<BusInstance*>(self)->raise_;
    if (raise) raise();
  }

  std::string name_;
  std::string startupId_;
  BusConnection bus_;
  guint registration_ = 0;
  bool first_ = false;
  std::function<void()> raise_;
  std::unique_ptr<SingleInstance> lock_;
};

/// In the session's runtime folder, else in the configuration folder, which several machines may share.
std::string LockPath(const std::string& name) {
  const std::string runtime = EnvironmentText("XDG_RUNTIME_DIR");
  if (runtime.starts_with('/') && ::access(runtime.c_str(), W_OK | X_OK) == 0) return runtime + "/" + name;
  const std::string settings = UserConfigurationFolder() + ProgramBaseName() + "/";
  (void)g_mkdir_with_parents(settings.c_str(), 0700);
  return settings + name + "." + BusNamePart(g_get_host_name());
}

}  // namespace

std::unique_ptr<SingleInstance> MakeSingleInstance(const std::string& title, const std::string& /*windowClass*/) {
  const std::string name = BusName(title);
  std::string startupId = StartupIdOfThisStart();
  BusConnection bus = ConnectToSessionBus();
  if (bus == nullptr) return MakeLockedInstance(LockPath(name), std::move(startupId));
  auto instance = std::make_unique<BusInstance>(name, startupId, std::move(bus));
  if (!instance->IsFirst()) return instance;
  // The owner of the name takes the lock, too, because another instance may have been started without a bus.
  std::unique_ptr<SingleInstance> lock = MakeLockedInstance(LockPath(name), std::move(startupId));
  if (!lock->IsFirst()) return lock;  // the name is released
  instance->Keep(std::move(lock));
  return instance;
}

}  // namespace quillon
