// The devices that can be stood for: screen, safe areas and haptics of each.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/core_graphics.hpp"

namespace base {

struct DeviceProfile {
  std::string_view name;
  CGSize screen;             // points, upright
  double scale;              // pixels per point
  UIEdgeInsets safeArea;     // points
  int feedbackSupportLevel;  // 0 none, 1 Taptic Engine, 2 haptics
};

std::span<const DeviceProfile> deviceProfiles();
// Null where there is none of that name.
const DeviceProfile* findDeviceProfile(std::string_view name);
const DeviceProfile& defaultDeviceProfile();

}  // namespace base
