#include "simulator/base/device_profiles.hpp"

#include <algorithm>
#include <array>

namespace base {

namespace {

constexpr UIEdgeInsets statusBarOnly = {20, 0, 0, 0};
constexpr UIEdgeInsets roundedScreen = {44, 0, 34, 0};

constexpr std::array<DeviceProfile, 4> profiles = {{
    {"iphone-se", {320, 568}, 2, statusBarOnly, 0},
    {"iphone-8", {375, 667}, 2, statusBarOnly, 2},
    {"iphone-x", {375, 812}, 3, roundedScreen, 2},
    {"iphone-11-pro-max", {414, 896}, 3, roundedScreen, 2},
}};

}  // namespace

std::span<const DeviceProfile> deviceProfiles() { return profiles; }

const DeviceProfile* findDeviceProfile(std::string_view name) {
  const auto* found = std::ranges::find(profiles, name, &DeviceProfile::name);
  return found == profiles.end() ? nullptr : &*found;
}

const DeviceProfile& defaultDeviceProfile() { return *findDeviceProfile("iphone-x"); }

}  // namespace base
