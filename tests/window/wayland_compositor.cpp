#include "tests/window/wayland_compositor.hpp"

#include <stdlib.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "simulator/foundation/local_socket.hpp"

namespace test {

namespace {

constexpr const char* socketName = "wayland";

// Writes the configuration and returns the command of the compositor.
std::vector<std::string> commandIn(const std::filesystem::path& folder, int scale, WaylandShell shell) {
  const std::filesystem::path configuration = folder / "weston.ini";
  // Without a path, the compositor starts no on-screen keyboard.
  std::ofstream(configuration) << "[input-method]\npath=\n[shell]\npanel-position=none\nlocking=false\nanimation=none\n"
                                  "startup-animation=none\nclose-animation=none\n";
  setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
  return {"/usr/bin/weston",
          "--backend=x11-backend.so",
          shell == WaylandShell::Kiosk ? "--shell=kiosk-shell.so" : "--shell=desktop-shell.so",
          "--use-pixman",
          "--width=700",
          "--height=600",
          "--idle-time=0",
          "--scale=" + std::to_string(scale),
          "--config=" + configuration.string(),
          "--socket=" + std::string(socketName),
          "--log=" + (folder / "log").string()};
}

}  // namespace

WaylandCompositor::WaylandCompositor(int scale, WaylandShell shell)
    : process_(commandIn(folder_.path(), scale, shell)) {
  while (!foundation::connectIn(folder_.path(), socketName).isOpen()) {
    if (process_.hasEnded()) throw std::runtime_error("weston has not started");
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  setenv("WAYLAND_DISPLAY", socketName, 1);
  setenv("GDK_BACKEND", "wayland", 1);
}

}  // namespace test
