// Tests of the window on the desktop's accessibility bus.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/window/accessible_desktop.hpp"
#include "tests/window/window_phone.hpp"

namespace {

using test::Accessible;
using test::AccessibleDesktop;
using test::eventually;
using test::WindowPhone;

TEST(WindowAccessibility, ScreenReaderUsesABanner) {
  AccessibleDesktop desktop;
  WindowPhone phone;
  phone.tell({{"do", "set"}, {"key", "showButtons"}, {"value", true}});
  desktop.enable();
  ASSERT_TRUE(AccessibleDesktop::appears(ATSPI_ROLE_ICON, "Telegram"));
  phone.showBanner();
  const std::string name = "Messages, Anna, Lunch?";
  ASSERT_TRUE(AccessibleDesktop::appears(ATSPI_ROLE_NOTIFICATION, name));
  EXPECT_TRUE(eventually([&] { return std::ranges::count(desktop.announcements(), name) == 1; }));

  EXPECT_EQ(AccessibleDesktop::find(ATSPI_ROLE_PUSH_BUTTON, "Reply"), nullptr);
  EXPECT_TRUE(AccessibleDesktop::perform(AccessibleDesktop::find(ATSPI_ROLE_NOTIFICATION, name), "expand"));
  ASSERT_TRUE(AccessibleDesktop::appears(ATSPI_ROLE_PUSH_BUTTON, "Reply"));
  const Accessible button = AccessibleDesktop::find(ATSPI_ROLE_PUSH_BUTTON, "Reply");
  EXPECT_TRUE(AccessibleDesktop::perform(button, "activate"));
  ASSERT_TRUE(AccessibleDesktop::appears(ATSPI_ROLE_ENTRY, "Reply"));
  EXPECT_TRUE(eventually([&] { return AccessibleDesktop::hasState(button, ATSPI_STATE_DEFUNCT); }));

  const Accessible field = AccessibleDesktop::find(ATSPI_ROLE_ENTRY, "Reply");
  EXPECT_TRUE(eventually([&] { return AccessibleDesktop::hasState(field, ATSPI_STATE_FOCUSED); }));
  AtspiEditableText* const editable = atspi_accessible_get_editable_text_iface(field.get());
  ASSERT_NE(editable, nullptr);
  atspi_editable_text_set_text_contents(editable, "At one!", nullptr);
  g_object_unref(editable);
  EXPECT_TRUE(eventually([&] { return phone.showsText("At one!"); }));
  EXPECT_TRUE(eventually([&] { return AccessibleDesktop::textOf(field) == "At one!"; }));
  EXPECT_TRUE(eventually([&] { return phone.showsScreen(); }));

  phone.display.requestClose(phone.window);
  EXPECT_TRUE(eventually([&] { return phone.process.hasEnded(); }));
  EXPECT_TRUE(phone.process.hasSucceeded());
}

TEST(WindowAccessibility, PhoneDoesNotStartTheAccessibilityBus) {
  AccessibleDesktop desktop;
  const WindowPhone phone;
  phone.showBanner();
  ASSERT_TRUE(eventually([&] { return phone.showsScreen(); }));
  EXPECT_FALSE(desktop.hasAccessibilityBus());
  desktop.enable();
  EXPECT_TRUE(desktop.hasAccessibilityBus());
}

TEST(WindowAccessibility, ComposerPlaysAPreset) {
  AccessibleDesktop desktop;
  const WindowPhone phone;
  desktop.enable();
  ASSERT_TRUE(AccessibleDesktop::appears(ATSPI_ROLE_PUSH_BUTTON, "Compose a notification"));
  EXPECT_EQ(AccessibleDesktop::find(ATSPI_ROLE_PUSH_BUTTON, "Play"), nullptr);
  const int width = phone.display.sizeOf(phone.window).width;
  phone.display.focus(phone.window);
  phone.display.send("key F9");
  ASSERT_TRUE(AccessibleDesktop::appears(ATSPI_ROLE_PUSH_BUTTON, "Play"));
  EXPECT_GT(phone.display.sizeOf(phone.window).width, width);
  EXPECT_TRUE(AccessibleDesktop::perform(AccessibleDesktop::find(ATSPI_ROLE_PUSH_BUTTON, "Play"), "click"));
  EXPECT_TRUE(eventually([&] { return phone.showsText("Anna Weber"); }));
  phone.display.send("key F9");
  EXPECT_TRUE(eventually([&] { return phone.showsScreen(); }));
}

}  // namespace
