// A Wayland compositor in a window of the X server that DISPLAY selects. Its input devices are the mouse and the
// keyboard of the X server.
#pragma once

#include "tests/support/child_process.hpp"
#include "tests/support/temporary_folder.hpp"

namespace test {

enum class WaylandShell {
  Kiosk,    // shows the window of each client without decorations in its whole window
  Desktop,  // shows the windows of the clients with their own decorations
};

class WaylandCompositor {
 public:
  // The title of the compositor's window.
  static constexpr const char* title = "Weston Compositor - screen0";

  // Starts the compositor, waits until it accepts clients, and sets the environment variables that select it. `scale`
  // is the number of pixels per logical pixel. Throws std::runtime_error if the compositor does not start.
  explicit WaylandCompositor(int scale, WaylandShell shell = WaylandShell::Kiosk);

  // Kills the compositor, which simulates a crash.
  void kill() const { process_.kill(); }

 private:
  TemporaryFolder folder_;
  ChildProcess process_;
};

}  // namespace test
