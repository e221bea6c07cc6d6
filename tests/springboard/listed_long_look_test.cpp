// Tests of long looks opened from the notification list on the lock screen.
#include "platform/ui_window.hpp"
#include "simulator/springboard/banner/banner_presenter.hpp"
#include "simulator/springboard/list/notification_list_cell.hpp"
#include "simulator/springboard/long_look/long_look_presenter.hpp"
#include "simulator/springboard/shell/lock_screen.hpp"
#include "tests/springboard/long_look_fixture.hpp"

namespace test {

namespace {

class ListedLongLook : public LongLook {
 protected:
  void openFirstCell() {
    phone.present({{"message", "Lunch?"}, {"actions", {{{"key", "a"}, {"identifier", "x"}, {"title", "Archive"}}}}});
    phone.run("lock");
    phone.wait(8);
    phone.log();
    openLongLookOfCell(0);
  }
  void openLongLookOfCell(NSUInteger index) {
    const auto* list = objc::state(objc::state(SBLockScreenManager::sharedInstance()).sheet.get()).list.get();
    const auto* cell = static_cast<NCNotificationListCell*>(list->subviews()->objectAtIndex(index));
    const auto completion = objc::block([this](bool opened) { wasOpened = opened; });
    objc::send<void, "presentLongLookAnimated:trigger:completion:">(
        objc::state(cell).controller.get(), true, NSInteger{0}, static_cast<objc::Block<void(bool)>*>(completion));
    phone.wait(1);
  }
  // Whether the long look was opened, as reported to the completion of its presentation.
  bool wasOpened = false;
};

TEST_F(ListedLongLook, OpensOnTheLockScreen) {
  openFirstCell();
  EXPECT_TRUE(wasOpened);
  EXPECT_TRUE(isOpen());
  EXPECT_TRUE(view("NCNotificationListCell").at("children")[0].at("hidden").get<bool>());
}

TEST_F(ListedLongLook, TapOutsideClosesItAndKeepsTheCell) {
  openFirstCell();
  phone.run("tap", {{"at", {187, 780}}});
  phone.wait(1);
  EXPECT_FALSE(isOpen());
  EXPECT_FALSE(view("NCNotificationListCell").at("children")[0].at("hidden").get<bool>());
  EXPECT_EQ(listedCount(), 1U);
}

TEST_F(ListedLongLook, ActionRemovesTheCell) {
  openFirstCell();
  phone.run("tap", {{"label", "Archive"}});
  phone.wait(1);
  EXPECT_FALSE(isOpen());
  EXPECT_TRUE(view("NCNotificationListCell").is_null());
}

TEST_F(ListedLongLook, ClosesWithItsNotificationAndWithTheLockScreen) {
  openFirstCell();
  phone.run("withdraw");
  phone.wait(1);
  EXPECT_FALSE(isOpen());
  openFirstCell();
  phone.run("press", {{"type", 101}, {"force", 0}});
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(springboard::openedShortLook(), nullptr);
}

TEST_F(ListedLongLook, StaysOpenWhenAnotherNotificationReplacesItsCell) {
  openFirstCell();
  phone.present({{"message", "Other"}, {"thread", "other"}});
  phone.wait(1);
  EXPECT_TRUE(isOpen());
  phone.run("tap", {{"at", {187, 780}}});
  phone.wait(1);
  EXPECT_FALSE(isOpen());
}

TEST_F(ListedLongLook, KeepsItsCellHiddenWhenTheMinuteChanges) {
  openFirstCell();
  phone.wait(61);
  EXPECT_TRUE(isOpen());
  EXPECT_TRUE(view("NCNotificationListCell").at("children")[0].at("hidden").get<bool>());
}

TEST_F(ListedLongLook, RestoresTheKeyWindowWhenTheLockScreenIsLeft) {
  const auto keyWindow = [] { return UIApplication::sharedApplication()->keyWindow(); };
  UIWindow* home = keyWindow();
  for (const Json& end : {Json{{"do", "press"}, {"type", 101}, {"force", 0}}, Json{{"do", "lock"}}}) {
    phone.present({{"actions", {{{"key", "a"}, {"identifier", "x"}, {"title", "Reply"}, {"textInput", true}}}}});
    phone.run("lock");
    phone.wait(8);
    openLongLookOfCell(0);
    phone.run("tap", {{"label", "Reply"}});
    ASSERT_NE(keyWindow(), home) << end;
    phone.run(end);
    EXPECT_EQ(keyWindow(), home) << end;
  }
}

TEST_F(ListedLongLook, ReplacesABannersLongLookAndDismissesTheBanner) {
  phone.present({{"thread", "first"}});
  phone.run("lock");
  const int banner = open({{"thread", "second"}});
  phone.wait(7);
  openLongLookOfCell(1);
  EXPECT_TRUE(wasOpened);
  EXPECT_TRUE(isOpen());
  EXPECT_TRUE(phone.isDismissed(banner));
}

TEST_F(ListedLongLook, DoesNotLetTheBannerWindowBecomeKey) {
  openFirstCell();
  phone.present({{"thread", "other"}});
  UIWindow* window = springboard::bannerController(springboard::bannerCount())->view()->window();
  EXPECT_FALSE((objc::send<bool, "_canBecomeKeyWindow">(window)));
}

}  // namespace

}  // namespace test
