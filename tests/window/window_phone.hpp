// A live phone with a window, in a separate process on a virtual display.
#pragma once

#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "simulator/base/device_profiles.hpp"
#include "simulator/plugins/phone_display/window_layout.hpp"
#include "tests/support/child_process.hpp"
#include "tests/support/temporary_folder.hpp"
#include "tests/window/live_phone.hpp"
#include "tests/window/virtual_display.hpp"
#include "tests/window/wayland_compositor.hpp"

namespace test {

struct WaylandDesktop {
  int scale = 1;  // the number of pixels per logical pixel
  WaylandShell shell = WaylandShell::Kiosk;
};

class WindowPhone {
 public:
  // Starts the phone on X11, or on Wayland if there is a desktop, and waits until its window is visible. On Wayland,
  // `window` is the window of the compositor.
  explicit WindowPhone(const std::string& device = "iphone-x", std::optional<WaylandDesktop> wayland = std::nullopt,
                       InputDevices devices = InputDevices::Pointer);
  // Prints the phone's errors.
  ~WindowPhone();

  // Executes a command of the phone and returns the answer.
  nlohmann::json tell(const nlohmann::json& command) const;
  // Shows a banner that stays until it is dismissed, and returns its controller.
  int showBanner(const std::string& section = "com.apple.MobileSMS") const;
  nlohmann::json state(int controller) const;
  bool showsText(const std::string& text) const;
  // Returns whether the window currently shows exactly the pixels of the phone's screen, except for the rounded corners
  // of the screen.
  bool showsScreen() const;

  // Presses the primary button at a point of the phone's screen.
  void press(CGPoint point) const { display.send("mousemove " + position(point) + "mousedown 1"); }
  // Presses the primary button at a point of the phone's screen, drags in steps, and holds the button.
  void pressAndDrag(CGPoint from, CGPoint by) const;
  void release() const { display.send("mouseup 1"); }

  // Returns what the phone has written to standard error.
  std::string errors() const;
  // Returns whether the program is running with the phone's root.
  bool isRunning(const std::string& program) const;
  // The number of times that a thread of the phone has slept.
  long sleepCount() const;

  phone_display::WindowLayout layout() const;

  // Returns the pixel of the window that shows a point of the phone's screen.
  CGPoint pixel(CGPoint point) const;
  // The same, as arguments of xdotool.
  std::string position(CGPoint point) const;

  VirtualDisplay display;
  std::unique_ptr<WaylandCompositor> compositor;
  const base::DeviceProfile& device;
  TemporaryFolder folder;
  ChildProcess process;
  VirtualDisplay::Window window = 0;
};

// Drags a banner while the Messages app is running, and calls `loseDisplay`, which ends the display server. Expects
// that the touch is canceled, that both processes of the phone end, and that an error states the reason.
void expectEndOfDrag(WindowPhone& phone, const std::function<void()>& loseDisplay);

}  // namespace test
