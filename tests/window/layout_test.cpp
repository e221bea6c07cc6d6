// Tests of the geometry of the phone in its window.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/plugins/window/window_layout.hpp"

namespace {

using window::layOut;
using window::WindowLayout;

class Layout : public testing::TestWithParam<std::string> {
 protected:
  const base::DeviceProfile& device = *base::findDeviceProfile(GetParam());
};

std::vector<std::string> deviceNames() {
  std::vector<std::string> names;
  for (const base::DeviceProfile& profile : base::deviceProfiles()) names.emplace_back(profile.name);
  return names;
}

INSTANTIATE_TEST_SUITE_P(Devices, Layout, testing::ValuesIn(deviceNames()));

// Windows that are too wide, too high, small, large and of the proportions of a phone.
constexpr int sizes[][2] = {{1500, 700}, {400, 1300}, {200, 300}, {3000, 2500}, {471, 908}};

TEST_P(Layout, KeepsTheProportionsOfTheScreen) {
  for (const auto& [width, height] : sizes) {
    const WindowLayout layout = layOut(device, width, height);
    const CGSize screen = device.screen;
    EXPECT_NEAR(layout.screen.height, layout.screen.width * screen.height / screen.width, 1) << width << "x" << height;
    EXPECT_EQ(layout.scale * screen.width, layout.screen.width);
  }
}

TEST_P(Layout, ShowsTheWholePhoneInTheMiddle) {
  for (const auto& [width, height] : sizes) {
    const WindowLayout layout = layOut(device, width, height);
    const window::PhoneBody body = window::bodyOf(device);
    EXPECT_GT(layout.screen.x, body.sideBezel * layout.scale);
    EXPECT_GT(layout.screen.y, body.endBezel * layout.scale);
    EXPECT_NEAR(width - layout.screen.x - layout.screen.width, layout.screen.x, 1);
    EXPECT_NEAR(height - layout.screen.y - layout.screen.height, layout.screen.y, 1);
  }
}

TEST_P(Layout, UsesTheWholeWidthOrHeight) {
  const drawing::Size needed = window::windowSize(device);
  for (const auto& [width, height] : sizes) {
    const WindowLayout layout = layOut(device, width, height);
    const double next = (layout.screen.width + 1.0) / device.screen.width;
    EXPECT_TRUE(next * needed.width > width || next * needed.height > height) << width << "x" << height;
  }
}

TEST_P(Layout, ConvertsPixelsToPoints) {
  const WindowLayout layout = layOut(device, 1500, 700);
  const CGPoint origin = window::screenPoint(layout, layout.screen.x, layout.screen.y);
  EXPECT_EQ(origin.x, 0);
  EXPECT_EQ(origin.y, 0);
  EXPECT_NEAR(window::screenPoint(layout, layout.screen.x + layout.screen.width, 0).x, device.screen.width, 1e-9);
}

TEST_P(Layout, HasASideButtonAtTheRightEdgeOfTheBody) {
  const window::PhoneBody body = window::bodyOf(device);
  const double edge = device.screen.width + body.sideBezel;
  const double middle = window::sideButton.top + window::sideButton.height / 2 - body.endBezel;
  EXPECT_EQ(window::buttonAt(device, {edge, middle}), window::BodyButton::Side);
  EXPECT_EQ(window::buttonAt(device, {edge, middle - window::sideButton.height}), window::BodyButton::None);
  EXPECT_EQ(window::buttonAt(device, {-body.sideBezel, middle}), window::BodyButton::None);
}

TEST(PhoneBody, OnlyDevicesWithAHomeButtonHaveItBelowTheScreen) {
  const base::DeviceProfile& device = *base::findDeviceProfile("iphone-8");
  const CGPoint middle = {device.screen.width / 2, device.screen.height + window::bodyOf(device).endBezel / 2};
  EXPECT_EQ(window::buttonAt(device, middle), window::BodyButton::Home);
  EXPECT_EQ(window::buttonAt(device, {middle.x + window::homeButtonDiameter, middle.y}), window::BodyButton::None);
  const base::DeviceProfile& rounded = *base::findDeviceProfile("iphone-x");
  const CGPoint below = {rounded.screen.width / 2, rounded.screen.height + window::bodyOf(rounded).endBezel / 2};
  EXPECT_EQ(window::buttonAt(rounded, below), window::BodyButton::None);
}

TEST(PhoneBody, OnlySomeDevicesHaveRoundedCorners) {
  EXPECT_GT(window::bodyOf(*base::findDeviceProfile("iphone-x")).screenRadius, 0);
  EXPECT_EQ(window::bodyOf(*base::findDeviceProfile("iphone-8")).screenRadius, 0);
}

}  // namespace
