// Tests of the platform's operations on the banner window: presses of the home button, long looks, keyboard focus.
#include <gtest/gtest.h>

#include "platform/ui_press.hpp"
#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"
#include "tests/library/platform_methods.hpp"

namespace {

using test::containerOf;
using test::controllerOf;
using test::Json;
using test::Phone;

const Json withTimer = {{"title", "Anna"}, {"message", "Hello"}, {"dismissAutomatically", true}};
const Json persistent = {{"title", "Anna"}, {"message", "Hello"}, {"dismissAutomatically", false}};

int present(Phone& phone, const Json& fields = withTimer) {
  const int controller = phone.present(fields);
  phone.wait(1);
  return controller;
}

TEST(HomeButton, DismissesAPersistentBannerWithoutAnimation) {
  Phone phone;
  const int controller = present(phone, persistent);
  phone.run({{"do", "press"}, {"type", 101}, {"force", 0}});
  EXPECT_FALSE(phone.state(controller).at("brim"));
  EXPECT_TRUE(phone.state(controller).at("dismissed"));
}

TEST(HomeButton, OtherButtonEventsAreIgnored) {
  Phone phone;
  const int controller = present(phone, persistent);
  for (const auto& [type, force] : {std::pair{101, 1}, {101, 2}, {102, 0}, {0, 0}, {-101, 0}})
    phone.run({{"do", "press"}, {"type", type}, {"force", force}});
  phone.wait(1);
  EXPECT_TRUE(phone.state(controller).at("brim"));
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
}

// The force that every press reports.
CGFloat reportedForce;

CGFloat forceOfPress(objc::Original<CGFloat(UIPress*)>, UIPress*) { return reportedForce; }

TEST(HomeButton, ForceBelowOneIsARelease) {
  Phone phone;
  test::replaceMethod<"force", &forceOfPress>(UIPress::classObject());
  for (const auto& [force, dismisses] :
       {std::pair{0.99, true}, {0.01, true}, {-0.5, true}, {1.0, false}, {1.5, false}}) {
    const int controller = present(phone, persistent);
    reportedForce = force;
    phone.run({{"do", "press"}, {"type", 101}, {"force", 1}});
    EXPECT_EQ(phone.state(controller).at("brim"), !dismisses) << force;
    phone.run({{"do", "lock"}});
  }
}

TEST(HomeButton, DoesNotDismissABannerThatHasATimer) {
  Phone phone;
  const int controller = present(phone);
  phone.run({{"do", "press"}, {"type", 101}, {"force", 0}});
  phone.wait(1);
  EXPECT_TRUE(phone.state(controller).at("brim"));
}

TEST(LongLook, IsNotPresentedForABanner) {
  Phone phone;
  const int controller = present(phone);
  phone.log();
  for (const char* kind : {"scroll", "click", "trigger"})
    phone.run({{"do", "longlook"}, {"controller", controller}, {"kind", kind}});
  EXPECT_EQ(phone.log(), Json::array());
  EXPECT_TRUE(test::firstNode(phone.windows(), "class", "NCNotificationLongLookView").is_null());
}

TEST(LongLook, IsPresentedForAControllerOutsideTheBannerWindow) {
  Phone phone;
  for (const char* kind : {"scroll", "click", "trigger"}) {
    const int controller = present(phone);
    const auto shortLook = controllerOf(controller);
    test::postCommand({{"command", "dismissnoani"}});
    ASSERT_FALSE(shortLook->isPartOfBanner());
    phone.log();
    phone.run({{"do", "longlook"}, {"controller", controller}, {"kind", kind}});
    EXPECT_EQ(phone.log(), Json::array({{{"event", "longlook"}, {"controller", controller}}})) << kind;
    phone.wait(2);
  }
}

// Creates the platform's content of the controller's notification.
objc::Ref<NSObject> makeContent(int controller) {
  const auto shortLook = springboard::bannerController(static_cast<std::size_t>(controller));
  const Class container = reinterpret_cast<Class>(objc_getClass("NCNotificationContentContainerViewController"));
  return objc::adopt(objc::send<NSObject*, "initWithNotificationRequest:">(objc::send<id, "alloc">(container),
                                                                           shortLook->notificationRequest()));
}

TEST(BannerWindow, ContentHasUserInteractionEnabled) {
  Phone phone;
  const auto content = makeContent(present(phone));
  EXPECT_TRUE((objc::send<bool, "userInteractionEnabled">(content.get())));
}

TEST(BannerWindow, ActionsOfTheContentArePerformedByThePlatform) {
  Phone phone;
  const auto content = makeContent(present(phone));
  const auto action = objc::make<NCNotificationAction>();
  const auto isPerformed = [&](NCNotificationAction* performed) {
    return objc::send<bool, "performAction:forNotification:withUserInfo:">(
        content.get(), performed, static_cast<NCNotificationRequest*>(nullptr), static_cast<NSDictionary*>(nullptr));
  };
  EXPECT_TRUE(isPerformed(action));
  EXPECT_FALSE(isPerformed(nullptr));
}

TEST(BannerWindow, CanBecomeKeyWindow) {
  Phone phone;
  const int controller = present(phone);
  EXPECT_TRUE((objc::send<bool, "_canBecomeKeyWindow">(containerOf(controller)->window())));
}

TEST(BannerWindow, FirstStatusBarWindowIsTheSharedOne) {
  Phone phone;
  const Class statusBarWindow = reinterpret_cast<Class>(objc_getClass("UIStatusBarWindow"));
  auto* shared = objc::send<UIWindow*, "brimSharedWindow">(statusBarWindow);
  ASSERT_NE(shared, nullptr);
  const auto another = objc::adopt(
      objc::send<UIWindow*, "initWithFrame:">(objc::send<id, "alloc">(statusBarWindow), CGRect{{0, 0}, {10, 10}}));
  EXPECT_EQ((objc::send<UIWindow*, "brimSharedWindow">(statusBarWindow)), shared);
  EXPECT_NE(another.get(), shared);
}

}  // namespace
