// Tests of the platform's classes while the library is not loaded: methods and their encodings, icons, sounds and
// bulletins.
#include "objc/autorelease_pool.hpp"
#include "platform/ui_device.hpp"
#include "platform/ui_image.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/springboard/services/bulletin_server.hpp"
#include "simulator/springboard/services/feedback.hpp"
#include "tests/support/plain_phone.hpp"

namespace {

using test::Json;
using test::PlainPhone;

constexpr const char* placeholderDigest = "543507683f16c45f72e8acbaa3827cbc";

struct Method {
  const char* className;
  const char* selector;
  const char* encoding;
};

// Methods that the library calls or replaces. A null encoding means that the method is inherited from Foundation and
// its encoding is not checked.
constexpr Method methods[] = {
    {"NCNotificationViewControllerView", "didMoveToSuperview", "v@:"},
    {"NCNotificationViewControllerView", "contentView", "@@:"},
    {"NCNotificationContentContainerViewController", "initWithNotificationRequest:", "@@:@"},
    {"NCNotificationContentContainerViewController", "userInteractionEnabled", "B@:"},
    {"NCNotificationContentContainerViewController", "performAction:forNotification:withUserInfo:", "B@:@@@"},
    {"SBNotificationBannerWindow", "_canBecomeKeyWindow", "B@:"},
    {"NCNotificationShortLookViewController", "viewDidLoad", "v@:"},
    {"NCNotificationShortLookViewController", "dealloc", nullptr},
    {"NCNotificationShortLookViewController", "traitCollectionDidChange:", "v@:@"},
    {"NCNotificationShortLookViewController", "_handleTapOnView:", "v@:@"},
    {"NCNotificationShortLookViewController", "dismissViewControllerWithTransition:completion:", "v@:q@?"},
    {"NCNotificationShortLookViewController", "_presentLongLookForScrollAnimated:completion:", "v@:B@?"},
    {"NCNotificationShortLookViewController", "_presentLongLookViaClickPresentationInteraction:", "v@:@"},
    {"SBHomeScreenViewController", "viewDidLoad", "v@:"},
    {"SBHomeScreenViewController", "dealloc", nullptr},
    {"SBGrabberTongue", "dismissWithStyle:animated:", "B@:qB"},
    {"SpringBoard", "_handlePhysicalButtonEvent:", "B@:@"},
    {"SpringBoard", "launchApplicationWithIdentifier:suspended:", "B@:@B"},
    {"NCNotificationViewController", "notificationRequest", "@@:"},
    {"NCNotificationViewController", "_askDelegateToExecuteAction:withParameters:animated:", "v@:@@B"},
    {"NCNotificationViewController", "presentLongLookAnimated:trigger:completion:", "v@:Bq@?"},
    {"NCNotificationViewController", "presentViewController:animated:completion:", "v@:@B@?"},
    {"SBLockScreenManager",
     "_activateLockScreenAnimated:animationProvider:automatically:inScreenOffMode:dimInAnimation:"
     "dismissNotificationCenter:completion:",
     "v@:B@BBBB@?"},
    {"UIStatusBarWindow", "initWithFrame:", "@@:{CGRect={CGPoint=dd}{CGSize=dd}}"},
    {"BBServer", "initWithQueue:", "@@:@"},
    {"BBServer",
     "initWithQueue:dataProviderManager:syncService:dismissalSyncCache:observerListener:utilitiesListener:"
     "conduitListener:systemStateListener:settingsListener:",
     "@@:@@@@@@@@@"},
    {"BBServer", "dealloc", nullptr},
    {"BBServer", "publishBulletin:destinations:", "v@:@Q"},
};

TEST(Platform, HasTheMethodsThatTheLibraryCallsOrReplaces) {
  const PlainPhone phone;
  for (const Method& expected : methods) {
    Class owner = reinterpret_cast<Class>(objc_getClass(expected.className));
    ASSERT_NE(owner, nullptr) << expected.className;
    const auto found = class_getInstanceMethod(owner, sel_registerName(expected.selector));
    ASSERT_NE(found, nullptr) << expected.className << " " << expected.selector;
    if (expected.encoding != nullptr) {
      EXPECT_STREQ(method_getTypeEncoding(found), expected.encoding) << expected.selector;
    }
  }
}

TEST(Platform, NotificationViewHasOnlyItsOldNameBelowSystemVersionTwelve) {
  const PlainPhone phone({.systemVersion = "11.4"});
  EXPECT_NE(objc_getClass("_NCNotificationViewControllerView"), nullptr);
  EXPECT_EQ(objc_getClass("NCNotificationViewControllerView"), nullptr);
}

NSString* digestOf(UIImage* image) { return UIImageJPEGRepresentation(image, 100)->md5(); }

TEST(Platform, PlaceholderIconHasTheExpectedDigest) {
  const PlainPhone phone;
  const objc::AutoreleasePool pool;
  for (const int format : {8, 2, 0})
    EXPECT_STREQ(digestOf(UIImage::applicationIcon("no.such.application"_ns, format))->UTF8String(), placeholderDigest);
}

TEST(Platform, OtherDataHasOtherDigests) {
  const PlainPhone phone;
  const objc::AutoreleasePool pool;
  EXPECT_STRNE(digestOf(UIImage::applicationIcon("com.apple.MobileSMS"_ns, 2))->UTF8String(), placeholderDigest);
  EXPECT_STREQ(NSData::dataWithBytes("abc", 3)->md5()->UTF8String(), "900150983cd24fb0d6963f7d28e17f72");
}

TEST(Platform, PresentSetsTheApplicationsIcon) {
  PlainPhone phone;
  const objc::AutoreleasePool pool;
  const auto picture = phone.folder() / "icon.png";
  phone.run("screenshot", {{"path", picture.string()}, {"scale", 0.1}});
  phone.present({{"section", "org.example.app"}, {"icon", picture.string()}});
  EXPECT_STRNE(digestOf(UIImage::applicationIcon("org.example.app"_ns, 8))->UTF8String(), placeholderDigest);
}

TEST(Platform, SoundsAndHapticsAreLogged) {
  PlainPhone phone;
  AudioServicesPlaySystemSound(1520);
  AudioServicesPlayAlertSound(4095);
  const auto generator = objc::make<UINotificationFeedbackGenerator>();
  objc::send<void, "prepare">(generator.get());
  objc::send<void, "notificationOccurred:">(generator.get(), NSInteger{0});
  EXPECT_EQ(phone.log(), Json::array({{{"event", "sound"}, {"call", "system"}, {"id", 1520}},
                                      {{"event", "sound"}, {"call", "alert"}, {"id", 4095}},
                                      {{"event", "haptic"}, {"type", 0}}}));
}

objc::Ref<BBBulletin> makeBulletin() {
  auto bulletin = objc::make<BBBulletin>();
  objc::send<void, "setTitle:">(bulletin.get(), "Anna"_ns);
  objc::send<void, "setSectionID:">(bulletin.get(), "com.apple.MobileSMS"_ns);
  objc::send<void, "setClearable:">(bulletin.get(), true);
  return bulletin;
}

void publish(const objc::Ref<BBBulletin>& bulletin, NSUInteger destinations) {
  const auto server = objc::adopt(objc::send<BBServer*, "initWithQueue:">(objc::allocate<BBServer>(), __BBServerQueue));
  dispatch_sync(__BBServerQueue, objc::block([server, bulletin, destinations] {
                  objc::send<void, "publishBulletin:destinations:">(server.get(), bulletin.get(), destinations);
                }));
  foundation::drainMainQueue();
}

TEST(Platform, PublishedBulletinIsLoggedAndPresentedAsABanner) {
  PlainPhone phone;
  const objc::AutoreleasePool pool;
  publish(makeBulletin(), 15);
  const Json event = phone.log().at(0);
  EXPECT_EQ(event.at("event"), "publish");
  EXPECT_EQ(event.at("destinations"), 15);
  EXPECT_EQ(event.at("title"), "Anna");
  EXPECT_TRUE(event.at("message").is_null());
  EXPECT_TRUE(event.at("clearable").get<bool>());
  EXPECT_FALSE(PlainPhone::find(phone.run("tree", {{"controller", 1}}).at("windows"), "text", "Anna").is_null());
}

TEST(Platform, BulletinForOtherDestinationsPresentsNoBanner) {
  PlainPhone phone;
  const objc::AutoreleasePool pool;
  publish(makeBulletin(), 1);
  const Json answer = phone.answer({{"do", "state"}, {"controller", 1}});
  EXPECT_FALSE(answer.at("ok").get<bool>());
}

TEST(Platform, TestBannerRequestIsNotLogged) {
  PlainPhone phone;
  phone.run("testbanner");
  EXPECT_EQ(phone.log(), Json::array());
}

}  // namespace
