// A display server without a screen, and a client of it that inspects and uses windows. Sizes and positions are in
// pixels.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/temporary_folder.hpp"
#include "tests/window/touch_screen.hpp"

namespace test {

struct WindowSize {
  int width = 0;
  int height = 0;
  bool operator==(const WindowSize&) const = default;
};

enum class InputDevices { Pointer, PointerAndTouchScreen };

class VirtualDisplay {
 public:
  using Window = unsigned long;

  // Starts the server on a free display and sets the environment variables that select it. Throws std::runtime_error if
  // the server does not start.
  explicit VirtualDisplay(InputDevices devices = InputDevices::Pointer);
  VirtualDisplay(const VirtualDisplay&) = delete;
  VirtualDisplay& operator=(const VirtualDisplay&) = delete;
  ~VirtualDisplay();

  // Ends the server, as a crash does. Afterwards, the other functions must not be called.
  void kill();

  // Returns the visible window with this title, or 0 if there is none.
  Window findWindow(const std::string& title) const;
  WindowSize sizeOf(Window window) const;
  std::string classOf(Window window) const;
  // Returns whether the window has a square icon with this side.
  bool hasIcon(Window window, unsigned long side) const;
  // Returns the pixels of a window as 0xRRGGBB, row by row. Returns nothing if the window is not visible.
  std::vector<std::uint32_t> pixelsOf(Window window) const;
  void resize(Window window, const WindowSize& size) const;
  void hide(Window window) const;
  // Asks the window to close, as the button in its title bar does.
  void requestClose(Window window) const;
  void focus(Window window) const;
  Window focusedWindow() const;
  // Opens an empty window in a corner of the display.
  Window openOtherWindow() const;
  // Puts the text on the clipboard until a program requests it. Returns whether a program has requested it within the
  // time limit. Calls `afterwards` when the text is available.
  bool offerText(const std::string& text, const std::function<void()>& afterwards) const;
  // Sends input events with xdotool. `events` are its arguments.
  void send(const std::string& events) const;
  // Moves the pointer. Returns when the server has sent the event.
  void movePointer(int x, int y) const;
  // The display must have a touch screen.
  const TouchScreen& touchScreen() const { return *touchScreen_; }

 private:
  TemporaryFolder folder_;
  pid_t server_ = 0;
  void* connection_ = nullptr;
  std::unique_ptr<TouchScreen> touchScreen_;
};

}  // namespace test
