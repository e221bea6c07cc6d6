#include "simulator/plugins/window/accessibility_bus.hpp"

#include <atk-bridge.h>
#include <stdlib.h>

#include <filesystem>
#include <utility>

namespace window {

namespace {

constexpr const char* busName = "org.a11y.Bus";
constexpr const char* busPath = "/org/a11y/bus";
constexpr const char* statusInterface = "org.a11y.Status";
constexpr const char* propertiesInterface = "org.freedesktop.DBus.Properties";

// Without this check, GLib would start a session bus.
bool hasSessionBus() {
  if (getenv("DBUS_SESSION_BUS_ADDRESS") != nullptr) return true;
  const char* folder = getenv("XDG_RUNTIME_DIR");
  std::error_code error;
  return folder != nullptr && std::filesystem::exists(std::filesystem::path(folder) / "bus", error);
}

bool isTrue(GVariant* properties, const char* name) {
  gboolean value = FALSE;
  return g_variant_lookup(properties, name, "b", &value) != FALSE && value != FALSE;
}

bool isCancelled(const GError* error) {
  return error != nullptr && g_error_matches(error, G_IO_ERROR, G_IO_ERROR_CANCELLED) != FALSE;
}

}  // namespace

AccessibilityBus::AccessibilityBus(std::function<void()> whenConnected)
    : whenConnected_(std::move(whenConnected)), cancellable_(g_cancellable_new()) {
  if (!hasSessionBus()) return;
  const auto connected = +[](GObject*, GAsyncResult* result, void* self) {
    GError* error = nullptr;
    GDBusConnection* const bus = g_bus_get_finish(result, &error);
    // The object no longer exists if the operation was canceled.
    if (!isCancelled(error) && bus != nullptr) static_cast<AccessibilityBus*>(self)->observe(bus);
    g_clear_error(&error);
    if (bus != nullptr) g_object_unref(bus);
  };
  g_bus_get(G_BUS_TYPE_SESSION, cancellable_, connected, this);
}

AccessibilityBus::~AccessibilityBus() {
  g_cancellable_cancel(cancellable_);
  g_object_unref(cancellable_);
  if (sessionBus_ == nullptr) return;
  g_dbus_connection_signal_unsubscribe(sessionBus_, subscription_);
  g_object_unref(sessionBus_);
}

void AccessibilityBus::observe(GDBusConnection* sessionBus) {
  sessionBus_ = static_cast<GDBusConnection*>(g_object_ref(sessionBus));
  g_dbus_connection_set_exit_on_close(sessionBus_, FALSE);
  const auto changed =
      +[](GDBusConnection*, const char*, const char*, const char*, const char*, GVariant* arguments, void* self) {
        GVariant* const properties = g_variant_get_child_value(arguments, 1);
        static_cast<AccessibilityBus*>(self)->readStatus(properties);
        g_variant_unref(properties);
      };
  const auto received = +[](GObject* bus, GAsyncResult* result, void* self) {
    GError* error = nullptr;
    GVariant* const answer = g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, &error);
    if (answer != nullptr && !isCancelled(error)) {
      GVariant* const properties = g_variant_get_child_value(answer, 0);
      static_cast<AccessibilityBus*>(self)->readStatus(properties);
      g_variant_unref(properties);
      g_variant_unref(answer);
    }
    g_clear_error(&error);
  };
  subscription_ =
      g_dbus_connection_signal_subscribe(sessionBus_, busName, propertiesInterface, "PropertiesChanged", busPath,
                                         statusInterface, G_DBUS_SIGNAL_FLAGS_NONE, changed, this, nullptr);
  // NO_AUTO_START prevents this call from starting the accessibility bus if no other program uses it.
  g_dbus_connection_call(sessionBus_, busName, busPath, propertiesInterface, "GetAll",
                         g_variant_new("(s)", statusInterface), G_VARIANT_TYPE("(a{sv})"),
                         G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, cancellable_, received, this);
}

void AccessibilityBus::readStatus(GVariant* properties) {
  if (isConnected_ || (!isTrue(properties, "IsEnabled") && !isTrue(properties, "ScreenReaderEnabled"))) return;
  isConnected_ = true;
  // display.cpp has set this variable to prevent GTK from connecting at its start.
  g_unsetenv("NO_AT_BRIDGE");
  atk_bridge_adaptor_init(nullptr, nullptr);
  whenConnected_();
}

}  // namespace window
