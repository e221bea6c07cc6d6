#include "tests/window/window_phone.hpp"

#include <cairo.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

namespace test {

namespace fs = std::filesystem;
using nlohmann::json;

namespace {

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;

// The side, in points, of the square in which the bezel covers a rounded corner.
constexpr double cornerExtent = 1.6;

std::string contentsOf(const fs::path& file) {
  std::ifstream stream(file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// The pointer starts outside the compositor's window. The compositor draws a pointer that is inside from the start, but
// sometimes does not notice its motion.
std::unique_ptr<WaylandCompositor> startCompositor(const VirtualDisplay& display, const WaylandDesktop& wayland) {
  display.send("mousemove 1599 1299");
  return std::make_unique<WaylandCompositor>(wayland.scale, wayland.shell);
}

}  // namespace

WindowPhone::WindowPhone(const std::string& deviceName, std::optional<WaylandDesktop> wayland, InputDevices devices)
    : display(devices),
      compositor(wayland ? startCompositor(display, *wayland) : nullptr),
      device(*base::findDeviceProfile(deviceName)),
      process({SPRINGBOARD, "--live", "--window", "--device", deviceName, "--root", folder.path() / "root"},
              folder.path() / "errors") {
  const std::string title = wayland ? WaylandCompositor::title
                                    : std::string("Brim – ") + phone_display::productName(device.name) + " – " +
                                          (folder.path() / "root").string();
  if (!eventually([&] { return (window = display.findWindow(title)) != 0; }))
    throw std::runtime_error("the window did not open");
}

WindowPhone::~WindowPhone() { std::cerr << errors(); }

std::string WindowPhone::errors() const { return contentsOf(folder.path() / "errors"); }

json WindowPhone::tell(const json& command) const { return test::tell(folder.path() / "root", command); }

int WindowPhone::showBanner(const std::string& section) const {
  const json answer = tell({{"do", "present"},
                            {"section", section},
                            {"title", "Anna"},
                            {"message", "Lunch?"},
                            {"dismissAutomatically", false}});
  eventually([&] { return showsText("Lunch?"); });
  tell({{"do", "wait"}, {"seconds", 1}});
  return answer["controller"];
}

json WindowPhone::state(int controller) const { return tell({{"do", "state"}, {"controller", controller}}); }

bool WindowPhone::showsText(const std::string& text) const { return test::showsText(folder.path() / "root", text); }

phone_display::WindowLayout WindowPhone::layout() const {
  const WindowSize size = display.sizeOf(window);
  return phone_display::layOut(device, size.width, size.height);
}

bool WindowPhone::showsScreen() const {
  const phone_display::WindowLayout layout = this->layout();
  const std::vector<std::uint32_t> shown = display.pixelsOf(window);
  const fs::path file = folder.path() / "screen.png";
  tell({{"do", "screenshot"}, {"path", file}, {"scale", layout.scale}});
  const Surface picture(cairo_image_surface_create_from_png(file.c_str()), &cairo_surface_destroy);
  const int width = cairo_image_surface_get_width(picture.get());
  const int height = cairo_image_surface_get_height(picture.get());
  if (width != layout.screen.width || height != layout.screen.height || shown.empty()) return false;
  const double corner = cornerExtent * phone_display::bodyOf(device).screenRadius * layout.scale;
  const unsigned char* const bytes = cairo_image_surface_get_data(picture.get());
  for (int y = 0; y < height; ++y) {
    const auto* row = reinterpret_cast<const std::uint32_t*>(bytes + y * cairo_image_surface_get_stride(picture.get()));
    for (int x = 0; x < width; ++x) {
      if (std::min(x, width - 1 - x) < corner && std::min(y, height - 1 - y) < corner) continue;
      const int position = (layout.screen.y + y) * layout.width + layout.screen.x + x;
      if (shown[static_cast<std::size_t>(position)] != (row[x] & 0xFFFFFF)) return false;
    }
  }
  return true;
}

void WindowPhone::pressAndDrag(CGPoint from, CGPoint by) const {
  constexpr int steps = 10;
  std::string events = "mousemove " + position(from) + "mousedown 1 ";
  for (int step = 1; step <= steps; ++step) {
    const double fraction = static_cast<double>(step) / steps;
    events += "mousemove " + position({from.x + by.x * fraction, from.y + by.y * fraction}) + "sleep 0.02 ";
  }
  display.send(events);
}

std::string WindowPhone::position(CGPoint point) const {
  const CGPoint place = pixel(point);
  return std::to_string(std::lround(place.x)) + " " + std::to_string(std::lround(place.y)) + " ";
}

CGPoint WindowPhone::pixel(CGPoint point) const {
  const phone_display::WindowLayout place = layout();
  return {place.screen.x + point.x * place.scale, place.screen.y + point.y * place.scale};
}

bool WindowPhone::isRunning(const std::string& program) const {
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator("/proc", error)) {
    const std::string command = contentsOf(entry.path() / "cmdline");
    const bool isProgram = command.substr(0, command.find('\0')).ends_with("/" + program);
    if (isProgram && command.find(folder.path().string()) != std::string::npos) return true;
  }
  return false;
}

long WindowPhone::sleepCount() const {
  long count = 0;
  const fs::path tasks = fs::path("/proc") / std::to_string(process.process()) / "task";
  for (const fs::directory_entry& task : fs::directory_iterator(tasks)) {
    const std::string status = contentsOf(task.path() / "status");
    const std::string field = "\nvoluntary_ctxt_switches:";
    count += std::stol(status.substr(status.find(field) + field.size()));
  }
  return count;
}

// A tap is an error while the finger is on the screen. The last command that the phone executes before it ends shows
// that the touch was canceled.
void expectEndOfDrag(WindowPhone& phone, const std::function<void()>& loseDisplay) {
  phone.showBanner();
  phone.tell({{"do", "drag"}, {"by", {0, 120}}});
  phone.tell({{"do", "type"}, {"text", "Yes"}});
  phone.tell({{"do", "key"}, {"name", "return"}});
  EXPECT_TRUE(eventually([&] { return phone.isRunning("messages"); }));
  phone.showBanner();
  phone.pressAndDrag({188, 70}, {0, -10});
  const json tap = {{"do", "tap"}, {"at", {10, 700}}};
  EXPECT_TRUE(eventually([&] { return phone.tell(tap)["ok"] == false; }));

  CommandConnection connection(phone.folder.path() / "root");
  std::string taps;
  for (int index = 0; index < 1000; ++index) taps += tap.dump() + "\n";
  const auto sendTaps = [&] {
    try {
      while (true) connection.send(taps);
    } catch (const std::runtime_error&) {
    }
  };
  std::thread sender(sendTaps);
  EXPECT_EQ(connection.receive()["ok"], false);
  loseDisplay();
  bool wasTapped = false;
  try {
    while (true) wasTapped = connection.receive()["ok"];
  } catch (const std::runtime_error&) {
  }
  sender.join();
  EXPECT_TRUE(wasTapped);
  EXPECT_TRUE(eventually([&] { return phone.process.hasEnded(); }));
  EXPECT_EQ(phone.process.exitStatus(), 1);
  EXPECT_NE(phone.errors().find("the connection to the display was lost"), std::string::npos) << phone.errors();
  EXPECT_TRUE(eventually([&] { return !phone.isRunning("messages"); }));
  EXPECT_FALSE(fs::exists(phone.folder.path() / "root/var/run/control.socket"));
}

}  // namespace test
