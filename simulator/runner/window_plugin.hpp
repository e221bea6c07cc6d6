// The interface of the window plugin. The simulator looks up this function by name.
#pragma once

namespace runner {

enum class WindowState { Open, Closed, DisplayLost };

// A window of the desktop. It displays the screen of the phone and delivers the user's touches and keys. It
// receives its events in the run loop of the main thread. Main thread.
class PhoneWindow {
 public:
  PhoneWindow() = default;
  PhoneWindow(const PhoneWindow&) = delete;
  PhoneWindow& operator=(const PhoneWindow&) = delete;
  virtual ~PhoneWindow() = default;

  // DisplayLost means that the connection to the display server has ended. A window that is no longer open has
  // requested the termination of the process.
  virtual WindowState state() const = 0;
};

}  // namespace runner

// Opens the window of the phone, which must be running. A process can open only one window. Returns null if no display
// is available. The caller owns the window.
extern "C" runner::PhoneWindow* brim_open_window();
