#include "tests/window/accessible_desktop.hpp"

#include <gio/gio.h>
#include <stdlib.h>

#include <filesystem>
#include <stdexcept>

#include "tests/window/window_phone.hpp"

namespace test {

namespace {

Accessible search(AtspiAccessible* parent, AtspiRole role, const std::string& name) {
  atspi_accessible_clear_cache(parent);
  const int count = atspi_accessible_get_child_count(parent, nullptr);
  for (int index = 0; index < count; ++index) {
    Accessible child(atspi_accessible_get_child_at_index(parent, index, nullptr));
    if (child == nullptr) continue;
    const std::unique_ptr<char, decltype(&g_free)> childName(atspi_accessible_get_name(child.get(), nullptr), &g_free);
    if (atspi_accessible_get_role(child.get(), nullptr) == role && childName != nullptr && name == childName.get())
      return child;
    if (Accessible found = search(child.get(), role, name)) return found;
  }
  return nullptr;
}

void setEnabled() {
  GDBusConnection* const bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
  if (bus == nullptr) throw std::runtime_error("cannot connect to the session bus");
  g_dbus_connection_set_exit_on_close(bus, FALSE);
  GVariant* const answer =
      g_dbus_connection_call_sync(bus, "org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set",
                                  g_variant_new("(ssv)", "org.a11y.Status", "IsEnabled", g_variant_new_boolean(TRUE)),
                                  nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
  g_object_unref(bus);
  if (answer == nullptr) throw std::runtime_error("cannot start the accessibility bus; is at-spi2-core installed?");
  g_variant_unref(answer);
}

}  // namespace

AccessibleDesktop::AccessibleDesktop() {
  const std::filesystem::path socket = folder_.path() / "bus";
  setenv("XDG_RUNTIME_DIR", folder_.path().c_str(), 1);
  setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + socket.string()).c_str(), 1);
  setenv("GSETTINGS_BACKEND", "memory", 1);
  unsetenv("AT_SPI_BUS_ADDRESS");
  bus_ = std::make_unique<ChildProcess>(std::vector<std::string>{"/usr/bin/dbus-daemon", "--session", "--nofork",
                                                                 "--address=unix:path=" + socket.string()});
  if (!eventually([&] { return std::filesystem::exists(socket); }))
    throw std::runtime_error("the session bus did not start; is the package dbus installed?");
}

AccessibleDesktop::~AccessibleDesktop() {
  if (listener_ != nullptr) g_object_unref(listener_);
}

void AccessibleDesktop::enable() {
  setEnabled();
  atspi_init();
  const auto receive = +[](AtspiEvent* event, void* self) {
    if (G_VALUE_HOLDS_STRING(&event->any_data) != FALSE)
      static_cast<AccessibleDesktop*>(self)->announcements_.emplace_back(g_value_get_string(&event->any_data));
    g_boxed_free(ATSPI_TYPE_EVENT, event);
  };
  listener_ = atspi_event_listener_new(receive, this, nullptr);
  atspi_event_listener_register(listener_, "object:announcement", nullptr);
}

bool AccessibleDesktop::hasAccessibilityBus() const { return std::filesystem::exists(folder_.path() / "at-spi/bus"); }

Accessible AccessibleDesktop::find(AtspiRole role, const std::string& name) {
  const Accessible desktop(atspi_get_desktop(0));
  return search(desktop.get(), role, name);
}

bool AccessibleDesktop::appears(AtspiRole role, const std::string& name) {
  return eventually([&] { return find(role, name) != nullptr; });
}

bool AccessibleDesktop::perform(const Accessible& accessible, const std::string& action) {
  if (accessible == nullptr) return false;
  AtspiAction* const actions = atspi_accessible_get_action_iface(accessible.get());
  if (actions == nullptr) return false;
  bool isPerformed = false;
  for (int index = 0; index < atspi_action_get_n_actions(actions, nullptr); ++index) {
    const std::unique_ptr<char, decltype(&g_free)> name(atspi_action_get_action_name(actions, index, nullptr), &g_free);
    if (name != nullptr && action == name.get()) isPerformed = atspi_action_do_action(actions, index, nullptr) != FALSE;
  }
  g_object_unref(actions);
  return isPerformed;
}

std::string AccessibleDesktop::textOf(const Accessible& accessible) {
  AtspiText* const text = atspi_accessible_get_text_iface(accessible.get());
  if (text == nullptr) return "";
  const std::unique_ptr<char, decltype(&g_free)> contents(atspi_text_get_text(text, 0, -1, nullptr), &g_free);
  g_object_unref(text);
  return contents == nullptr ? "" : contents.get();
}

bool AccessibleDesktop::hasState(const Accessible& accessible, AtspiStateType state) {
  atspi_accessible_clear_cache(accessible.get());
  AtspiStateSet* const states = atspi_accessible_get_state_set(accessible.get());
  const bool isSet = atspi_state_set_contains(states, state) != FALSE;
  g_object_unref(states);
  return isSet;
}

const std::vector<std::string>& AccessibleDesktop::announcements() {
  while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
  }
  return announcements_;
}

}  // namespace test
