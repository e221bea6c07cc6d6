// The interface of the plugins that display the phone: window, for the desktop, and web_page, for a browser. The
// simulator looks up this function by name.
#pragma once

#include <string>

namespace runner {

// Where the phone is displayed: in a window on the desktop, or in a web page that this computer serves.
enum class WindowPlace { Desktop, WebPage };

enum class WindowState { Open, Closed, DisplayLost };

// A window or a page. It displays the screen of the phone and delivers the user's touches and keys. It receives its
// events in the run loop of the main thread. Main thread.
class PhoneWindow {
 public:
  PhoneWindow() = default;
  PhoneWindow(const PhoneWindow&) = delete;
  PhoneWindow& operator=(const PhoneWindow&) = delete;
  virtual ~PhoneWindow() = default;

  // DisplayLost means that the connection to the display server was lost. When a window closes or loses its display, it
  // requests the termination of the process. A page is always open.
  virtual WindowState state() const = 0;
  // The address of the page. Empty for a window on the desktop.
  virtual std::string address() const = 0;
};

}  // namespace runner

// Opens the window of the phone, or serves its page. The phone must be running. A process can open only one window or
// page. Returns null, with an error on standard error, if no display or no port is available. The caller owns the
// window.
extern "C" runner::PhoneWindow* brim_open_window();
