// The phone models that the simulator can run as, with the screen, safe area and haptics of each. Any thread.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/core_graphics.hpp"

namespace base {

struct DeviceProfile {
  std::string_view name;
  CGSize screen;             // points, portrait orientation
  double scale;              // pixels per point
  UIEdgeInsets safeArea;     // points
  int feedbackSupportLevel;  // 0: none, 1: Taptic Engine, 2: haptics
};

std::span<const DeviceProfile> deviceProfiles();
// Null if no profile has that name.
const DeviceProfile* findDeviceProfile(std::string_view name);
const DeviceProfile& defaultDeviceProfile();

}  // namespace base
