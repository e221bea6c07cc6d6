// The phone models that the simulator can represent. A profile contains the screen, safe area and haptics of a model.
// Any thread.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/core_graphics.hpp"

namespace base {

struct DeviceProfile {
  std::string_view name;
  CGSize screen;             // in points, in portrait orientation
  double scale;              // pixels per point
  UIEdgeInsets safeArea;     // in points
  int feedbackSupportLevel;  // 0: none, 1: Taptic Engine, 2: haptics
};

std::span<const DeviceProfile> deviceProfiles();
// Finds a profile by its name, such as "iphone-x". Returns null if there is no such profile.
const DeviceProfile* findDeviceProfile(std::string_view name);
const DeviceProfile& defaultDeviceProfile();

}  // namespace base
