// The desktop's accessibility bus. Main thread.
#pragma once

#include <gio/gio.h>

#include <functional>

namespace window {

// Connects GTK to the accessibility bus as soon as the desktop reports that assistive technologies are in use. Until
// then, the process does not connect to that bus and creates no accessible objects.
class AccessibilityBus {
 public:
  // Calls `whenConnected` once, in a GLib callback, after connecting.
  explicit AccessibilityBus(std::function<void()> whenConnected);
  AccessibilityBus(const AccessibilityBus&) = delete;
  AccessibilityBus& operator=(const AccessibilityBus&) = delete;
  ~AccessibilityBus();

  bool isConnected() const { return isConnected_; }

 private:
  void observe(GDBusConnection* sessionBus);
  // Reads the properties of the desktop's accessibility status, a dictionary.
  void readStatus(GVariant* properties);

  std::function<void()> whenConnected_;
  GCancellable* cancellable_;
  GDBusConnection* sessionBus_ = nullptr;
  guint subscription_ = 0;
  bool isConnected_ = false;
};

}  // namespace window
