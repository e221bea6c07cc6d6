// Tests of the window of a live phone on Wayland.
#include <gtest/gtest.h>

#include "tests/window/window_phone.hpp"

namespace {

using test::eventually;
using test::WindowPhone;

constexpr CGPoint banner = {188, 70};

TEST(WaylandWindow, ShowsTheScreenAndReceivesTheMouse) {
  const WindowPhone phone("iphone-x", test::WaylandDesktop{1});
  EXPECT_TRUE(eventually([&] { return phone.showsScreen(); }));
  const int controller = phone.showBanner();
  EXPECT_TRUE(eventually([&] { return phone.showsScreen(); }));
  phone.pressAndDrag(banner, {0, -60});
  phone.release();
  EXPECT_TRUE(eventually([&] { return phone.state(controller)["dismissed"] == true; }));
}

TEST(WaylandWindow, UsesAllPixelsOfADenseDisplay) {
  const WindowPhone phone("iphone-se", test::WaylandDesktop{2});
  EXPECT_TRUE(eventually([&] { return phone.showsScreen(); }));
}

TEST(WaylandWindow, ReceivesTheKeyboard) {
  const WindowPhone phone("iphone-x", test::WaylandDesktop{1});
  phone.showBanner();
  phone.tell({{"do", "drag"}, {"by", {0, 120}}});
  phone.display.focus(phone.window);
  phone.display.send("type --delay 20 Yes");
  EXPECT_TRUE(eventually([&] { return phone.showsText("Yes"); }));
}

TEST(WaylandWindow, LostCompositorEndsThePhoneWithAnError) {
  WindowPhone phone("iphone-x", test::WaylandDesktop{1});
  ASSERT_TRUE(eventually([&] { return phone.showsScreen(); }));
  phone.display.requestClose(phone.window);
  ASSERT_TRUE(eventually([&] { return phone.process.hasEnded(); }));
  EXPECT_EQ(phone.process.exitStatus(), 1);
}

TEST(WaylandWindow, LostCompositorDuringADragEndsThePhoneAndTheMessagesApp) {
  WindowPhone phone("iphone-x", test::WaylandDesktop{});
  test::expectEndOfDrag(phone, [&] { phone.compositor->kill(); });
}

// The shell shows the window with the decorations of GTK. The close button is at the right end of the title bar.
TEST(WaylandWindow, CloseButtonEndsThePhone) {
  WindowPhone phone("iphone-se", test::WaylandDesktop{1, test::WaylandShell::Desktop});
  phone.showBanner();
  phone.display.focus(phone.window);
  phone.display.send("key super+shift+m");
  const test::WindowSize size = phone.display.sizeOf(phone.window);
  const std::string button = std::to_string(size.width - 20) + " 20";
  EXPECT_TRUE(eventually([&] {
    phone.display.send("mousemove " + button + " click 1");
    return phone.process.hasEnded();
  }));
  EXPECT_TRUE(phone.process.hasSucceeded()) << phone.errors();
}

}  // namespace
