// Runs GLib's default main context, and with it GTK or the web server, in the run loop of the main thread. Main thread.
#pragma once

#include <glib.h>

#include <functional>
#include <vector>

#include "simulator/foundation/descriptor.hpp"

namespace phone_display {

class MainContext {
 public:
  static constexpr int noDisplay = -1;

  // Dispatches the events of the context from now on. `displayDescriptor` is the socket of the connection to the
  // display server. When the server closes this socket, the context is no longer dispatched, and `whenDisplayLost` is
  // called once. A phone without a display server passes noDisplay.
  MainContext(int displayDescriptor, std::function<void()> whenDisplayLost);
  MainContext(const MainContext&) = delete;
  MainContext& operator=(const MainContext&) = delete;
  ~MainContext();

  // Dispatches the events that are due. Call this after each use of GLib, or of a library based on it, outside of their
  // callbacks, because they can have added a source to the context without waking it. Do not call this in such a
  // callback.
  void dispatch();
  // Stops dispatching because the connection to the display server has failed.
  void loseDisplay();

 private:
  bool hasDisplayHungUp() const;
  // Updates `polled_` and returns the timeout of the context in milliseconds. A negative timeout is infinite.
  int query(int priority);
  void watchDescriptors();
  void setTimer(int milliseconds);

  GMainContext* context_;
  int displayDescriptor_;
  std::function<void()> whenDisplayLost_;
  // The run loop watches this epoll descriptor. It contains the timer and the descriptors of the context.
  foundation::FileDescriptor events_;
  foundation::FileDescriptor timer_;
  std::vector<GPollFD> polled_;
  std::vector<int> watched_;
  bool isDisplayLost_ = false;
};

}  // namespace phone_display
