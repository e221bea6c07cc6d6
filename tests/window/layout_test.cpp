// Tests of the geometry of the phone in its window.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/plugins/phone_display/window_layout.hpp"

namespace {

using phone_display::layOut;
using phone_display::WindowLayout;

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

// Window sizes: too wide, too tall, small, large, and with the proportions of a phone.
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
    const phone_display::PhoneBody body = phone_display::bodyOf(device);
    EXPECT_GT(layout.screen.x, body.sideBezel * layout.scale);
    EXPECT_GT(layout.screen.y, body.endBezel * layout.scale);
    EXPECT_NEAR(width - layout.screen.x - layout.screen.width, layout.screen.x, 1);
    EXPECT_NEAR(height - layout.screen.y - layout.screen.height, layout.screen.y, 1);
  }
}

TEST_P(Layout, UsesTheWholeWidthOrHeight) {
  const drawing::Size needed = phone_display::windowSize(device);
  for (const auto& [width, height] : sizes) {
    const WindowLayout layout = layOut(device, width, height);
    const double next = (layout.screen.width + 1.0) / device.screen.width;
    EXPECT_TRUE(next * needed.width > width || next * needed.height > height) << width << "x" << height;
  }
}

TEST_P(Layout, ConvertsPixelsToPoints) {
  const WindowLayout layout = layOut(device, 1500, 700);
  const CGPoint origin = phone_display::screenPoint(layout, layout.screen.x, layout.screen.y);
  EXPECT_EQ(origin.x, 0);
  EXPECT_EQ(origin.y, 0);
  EXPECT_NEAR(phone_display::screenPoint(layout, layout.screen.x + layout.screen.width, 0).x, device.screen.width,
              1e-9);
}

TEST_P(Layout, HasASideButtonAtTheRightEdgeOfTheBody) {
  const phone_display::PhoneBody body = phone_display::bodyOf(device);
  const double edge = device.screen.width + body.sideBezel;
  const double middle = phone_display::sideButton.top + phone_display::sideButton.height / 2 - body.endBezel;
  EXPECT_EQ(phone_display::buttonAt(device, {edge, middle}), phone_display::BodyButton::Side);
  EXPECT_EQ(phone_display::buttonAt(device, {edge, middle - phone_display::sideButton.height}),
            phone_display::BodyButton::None);
}

TEST_P(Layout, HasVolumeButtonsAtTheLeftEdgeOfTheBody) {
  using phone_display::BodyButton;
  const phone_display::PhoneBody body = phone_display::bodyOf(device);
  const auto buttonAt = [&](const phone_display::SideButton& button, double edge) {
    return phone_display::buttonAt(device, {edge, button.top + button.height / 2 - body.endBezel});
  };
  EXPECT_EQ(buttonAt(phone_display::volumeUpButton, -body.sideBezel), BodyButton::VolumeUp);
  EXPECT_EQ(buttonAt(phone_display::volumeDownButton, -body.sideBezel), BodyButton::VolumeDown);
  EXPECT_EQ(buttonAt(phone_display::sideButton, -body.sideBezel), BodyButton::None);
}

TEST(PhoneBody, OnlyDevicesWithAHomeButtonHaveItBelowTheScreen) {
  const base::DeviceProfile& device = *base::findDeviceProfile("iphone-8");
  const CGPoint middle = {device.screen.width / 2, device.screen.height + phone_display::bodyOf(device).endBezel / 2};
  EXPECT_EQ(phone_display::buttonAt(device, middle), phone_display::BodyButton::Home);
  EXPECT_EQ(phone_display::buttonAt(device, {middle.x + phone_display::homeButtonDiameter, middle.y}),
            phone_display::BodyButton::None);
  const base::DeviceProfile& rounded = *base::findDeviceProfile("iphone-x");
  const CGPoint below = {rounded.screen.width / 2, rounded.screen.height + phone_display::bodyOf(rounded).endBezel / 2};
  EXPECT_EQ(phone_display::buttonAt(rounded, below), phone_display::BodyButton::None);
}

TEST(PhoneBody, OnlySomeDevicesHaveRoundedCorners) {
  EXPECT_GT(phone_display::bodyOf(*base::findDeviceProfile("iphone-x")).screenRadius, 0);
  EXPECT_EQ(phone_display::bodyOf(*base::findDeviceProfile("iphone-8")).screenRadius, 0);
}

}  // namespace
