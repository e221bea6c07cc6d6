// Tests of the window of a live phone on Wayland.
#include <gtest/gtest.h>

#include "tests/window/window_phone.hpp"

namespace {

using test::eventually;
using test::WindowPhone;

constexpr CGPoint banner = {188, 70};

TEST(WaylandWindow, ShowsTheScreenAndReceivesTheMouse) {
  const WindowPhone phone("iphone-x", test::WaylandScale{1});
  EXPECT_TRUE(eventually([&] { return phone.showsScreen(); }));
  const int controller = phone.showBanner();
  EXPECT_TRUE(eventually([&] { return phone.showsScreen(); }));
  phone.pressAndDrag(banner, {0, -60});
  phone.release();
  EXPECT_TRUE(eventually([&] { return phone.state(controller)["dismissed"] == true; }));
}

TEST(WaylandWindow, UsesAllPixelsOfADenseDisplay) {
  const WindowPhone phone("iphone-se", test::WaylandScale{2});
  EXPECT_TRUE(eventually([&] { return phone.showsScreen(); }));
}

TEST(WaylandWindow, ReceivesTheKeyboard) {
  const WindowPhone phone("iphone-x", test::WaylandScale{1});
  phone.showBanner();
  phone.tell({{"do", "drag"}, {"by", {0, 120}}});
  phone.display.focus(phone.window);
  phone.display.send("type --delay 20 Yes");
  EXPECT_TRUE(eventually([&] { return phone.showsText("Yes"); }));
}

TEST(WaylandWindow, LostCompositorEndsThePhoneWithAnError) {
  WindowPhone phone("iphone-x", test::WaylandScale{1});
  ASSERT_TRUE(eventually([&] { return phone.showsScreen(); }));
  phone.display.requestClose(phone.window);
  ASSERT_TRUE(eventually([&] { return phone.process.hasEnded(); }));
  EXPECT_EQ(phone.process.exitStatus(), 1);
}

}  // namespace
