// Tests of the operation of the phone with the keyboard only.
#include <gtest/gtest.h>

#include "tests/window/window_phone.hpp"

namespace {

using test::eventually;
using test::WindowPhone;

// Shows a banner with a focus ring.
int focusBanner(const WindowPhone& phone) {
  const int controller = phone.showBanner();
  phone.display.focus(phone.window);
  EXPECT_TRUE(eventually([&] { return phone.showsScreen(); }));
  phone.display.send("key Tab");
  EXPECT_TRUE(eventually([&] { return !phone.showsScreen(); }));
  return controller;
}

TEST(WindowKeyboard, TabShowsARingAndReturnActivates) {
  const WindowPhone phone;
  const int controller = focusBanner(phone);
  phone.display.send("key Return");
  EXPECT_TRUE(eventually([&] { return phone.state(controller)["dismissed"] == true; }));
  EXPECT_TRUE(eventually([&] { return phone.showsScreen(); }));
}

TEST(WindowKeyboard, ShiftTabMovesBackToTheLastIcon) {
  const WindowPhone phone;
  focusBanner(phone);
  phone.display.send("key shift+Tab");
  phone.display.send("key space");
  // The icons in the dock have no labels, so the name is the one on the page of the application.
  EXPECT_TRUE(eventually([&] { return phone.showsText("WhatsApp"); }));
}

TEST(WindowKeyboard, EscapeHidesTheKeyboardAndThenDismissesTheBanner) {
  const WindowPhone phone;
  const int controller = phone.showBanner();
  phone.tell({{"do", "drag"}, {"by", {0, 120}}});
  phone.display.focus(phone.window);
  ASSERT_TRUE(eventually([&] { return phone.showsText("send"); }));
  phone.display.send("key Escape");
  ASSERT_TRUE(eventually([&] { return !phone.showsText("send"); }));
  ASSERT_EQ(phone.state(controller)["dismissed"], false);
  phone.display.send("key Escape");
  EXPECT_TRUE(eventually([&] { return phone.state(controller)["dismissed"] == true; }));
}

}  // namespace
