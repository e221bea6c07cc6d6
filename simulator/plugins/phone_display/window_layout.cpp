#include "simulator/plugins/phone_display/window_layout.hpp"

#include <glib.h>

#include <algorithm>
#include <cmath>

namespace phone_display {

namespace {

// The background around the phone, in points.
constexpr double margin = 28;

// The distance from the edge of the body, in points, up to which a click is on the narrow side button.
constexpr double sideButtonReach = 10;

constexpr PhoneBody roundedBody = {20, 20, 40, 57, false};
constexpr PhoneBody homeButtonBody = {20, 92, 0, 62, true};

}  // namespace

// Only a screen with rounded corners has a bottom inset in its safe area.
PhoneBody bodyOf(const base::DeviceProfile& device) {
  return device.safeArea.bottom > 0 ? roundedBody : homeButtonBody;
}

BodyButton buttonAt(const base::DeviceProfile& device, CGPoint point) {
  const PhoneBody body = bodyOf(device);
  const double fromCenter =
      std::hypot(point.x - device.screen.width / 2, point.y - device.screen.height - body.endBezel / 2);
  if (body.hasHomeButton && fromCenter <= homeButtonDiameter / 2) return BodyButton::Home;
  const auto isAt = [&](const SideButton& button, double edge) {
    const double fromTop = point.y + body.endBezel - button.top;
    return std::abs(point.x - edge) <= sideButtonReach && fromTop >= 0 && fromTop <= button.height;
  };
  if (isAt(sideButton, device.screen.width + body.sideBezel)) return BodyButton::Side;
  if (isAt(volumeUpButton, -body.sideBezel)) return BodyButton::VolumeUp;
  if (isAt(volumeDownButton, -body.sideBezel)) return BodyButton::VolumeDown;
  return BodyButton::None;
}

std::string productName(std::string_view device) {
  constexpr std::size_t maxAbbreviation = 2;
  std::string name;
  while (!device.empty()) {
    const std::string_view word = device.substr(0, device.find('-'));
    device.remove_prefix(std::min(device.size(), word.size() + 1));
    if (!name.empty()) name += ' ';
    if (word == "iphone") {
      name += "iPhone";
      continue;
    }
    for (std::size_t index = 0; index < word.size(); ++index)
      name += index == 0 || word.size() <= maxAbbreviation ? g_ascii_toupper(word[index]) : word[index];
  }
  return name;
}

drawing::Size windowSize(const base::DeviceProfile& device) {
  const PhoneBody body = bodyOf(device);
  return {device.screen.width + 2 * (body.sideBezel + margin), device.screen.height + 2 * (body.endBezel + margin)};
}

WindowLayout layOut(const base::DeviceProfile& device, int width, int height) {
  const drawing::Size needed = windowSize(device);
  const double fitting = std::min(width / needed.width, height / needed.height);
  const double screenWidth = std::max(1.0, std::floor(device.screen.width * fitting));
  WindowLayout layout;
  layout.width = width;
  layout.height = height;
  layout.scale = screenWidth / device.screen.width;
  layout.screen.width = static_cast<int>(screenWidth);
  layout.screen.height = static_cast<int>(std::ceil(device.screen.height * layout.scale - 1e-6));
  layout.screen.x = (width - layout.screen.width) / 2;
  layout.screen.y = (height - layout.screen.height) / 2;
  return layout;
}

CGPoint screenPoint(const WindowLayout& layout, double x, double y) {
  return {(x - layout.screen.x) / layout.scale, (y - layout.screen.y) / layout.scale};
}

}  // namespace phone_display
