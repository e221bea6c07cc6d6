// The geometry of the phone in its window. Any thread.
#pragma once

#include <string>
#include <string_view>

#include "simulator/base/device_profiles.hpp"
#include "simulator/drawing/geometry.hpp"
#include "simulator/drawing/pixel_rectangle.hpp"

namespace phone_display {

// The body of a phone, in points of its screen.
struct PhoneBody {
  double sideBezel;  // from the screen to the left and right edges
  double endBezel;   // from the screen to the top and bottom edges
  double screenRadius;
  double radius;
  bool hasHomeButton;
};

PhoneBody bodyOf(const base::DeviceProfile& device);

// The home button is a circle in the middle of the lower bezel.
inline constexpr double homeButtonDiameter = 58;
// The side button is at the right edge of the body, from `top` below the upper edge.
struct SideButton {
  double top;
  double height;
};
inline constexpr SideButton sideButton = {176, 88};

// The volume buttons are at the left edge of the body.
inline constexpr SideButton volumeUpButton = {162, 56};
inline constexpr SideButton volumeDownButton = {232, 56};

enum class BodyButton { None, Home, Side, VolumeUp, VolumeDown };

// Returns the button of the body at a point in coordinates of the phone's screen.
BodyButton buttonAt(const base::DeviceProfile& device, CGPoint point);

// Returns the product name of a device, such as "iPhone X".
std::string productName(std::string_view device);

// Returns the size, in points, of a window that shows the phone with its margin.
drawing::Size windowSize(const base::DeviceProfile& device);

struct WindowLayout {
  // The size of the window in pixels.
  int width = 0;
  int height = 0;
  double scale = 0;                // pixels per point
  drawing::PixelRectangle screen;  // in pixels of the window
};

// Returns the layout that shows the phone as large as possible in a window of this size in pixels. The phone keeps its
// proportions and is centered in the window. The screen has a whole number of pixels in each row.
WindowLayout layOut(const base::DeviceProfile& device, int width, int height);

// Converts a position in pixels of the window to a point of the phone's screen. The point can be outside the screen.
CGPoint screenPoint(const WindowLayout& layout, double x, double y);

}  // namespace phone_display
