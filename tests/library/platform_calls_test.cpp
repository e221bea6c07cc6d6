// Tests of the calls that the library's hooks make to the platform: whether, when and with which arguments they call
// the method that they replace.
#include <gtest/gtest.h>

#include <optional>

#include "platform/ns_distributed_notification_center.hpp"
#include "platform/ui_notification_feedback_generator.hpp"
#include "simulator/springboard/banner/notification_view_controller.hpp"
#include "simulator/springboard/shell/home_screen.hpp"
#include "simulator/springboard/shell/lock_screen.hpp"
#include "tests/library/controllers.hpp"
#include "tests/library/dismissals.hpp"
#include "tests/library/platform_methods.hpp"

namespace {

using test::controllerOf;
using test::Json;
using test::Phone;
using test::presentPersistent;
using test::replaceBelowHook;

constexpr const char* shortLook = "NCNotificationShortLookViewController";
constexpr const char* dismissalSelector = "dismissViewControllerWithTransition:completion:";

// The number of calls that reached the platform, and the arguments of the last one.
struct LockScreenCall {
  int count = 0;
  bool isBannerOnScreen = false;
  std::vector<bool> flags;
  NSObject* animationProvider = nullptr;
  objc::Block<void()>* completion = nullptr;
} lockScreenCall;

void recordLockScreen(id, SEL, bool animated, NSObject* animationProvider, bool automatically, bool inScreenOffMode,
                      bool dimInAnimation, bool dismissNotificationCenter, objc::Block<void()>* completion) {
  lockScreenCall = {lockScreenCall.count + 1,
                    controllerOf(1)->brimView() != nullptr,
                    {animated, automatically, inScreenOffMode, dimInAnimation, dismissNotificationCenter},
                    animationProvider,
                    completion};
}

TEST(LockScreenHook, RemovesTheBannerAndThenCallsThePlatformWithTheSameArguments) {
  replaceBelowHook("SBLockScreenManager",
                   "_activateLockScreenAnimated:animationProvider:automatically:inScreenOffMode:dimInAnimation:"
                   "dismissNotificationCenter:completion:",
                   objc::toImplementation(&recordLockScreen));
  Phone phone;
  ASSERT_EQ(phone.present(), 1);
  ASSERT_TRUE(phone.state(1).at("brim"));
  const auto provider = objc::make<NSObject>();
  const auto completion = objc::block([] {});
  for (std::size_t differing = 0; differing < 5; ++differing) {
    std::vector<bool> flags(5, false);
    flags[differing] = true;
    objc::send<void,
               "_activateLockScreenAnimated:animationProvider:automatically:inScreenOffMode:dimInAnimation:"
               "dismissNotificationCenter:completion:">(SBLockScreenManager::sharedInstance(), bool(flags[0]),
                                                        provider.get(), bool(flags[1]), bool(flags[2]), bool(flags[3]),
                                                        bool(flags[4]), completion.get());
    EXPECT_EQ(lockScreenCall.flags, flags);
    EXPECT_EQ(lockScreenCall.animationProvider, provider.get());
    EXPECT_EQ(lockScreenCall.completion, completion.get());
    EXPECT_FALSE(lockScreenCall.isBannerOnScreen);
  }
  EXPECT_EQ(lockScreenCall.count, 5);
}

int grabberCalls = 0;

bool recordGrabber(id, SEL, NSInteger, bool) {
  ++grabberCalls;
  return false;
}

TEST(GrabberHook, CallsThePlatformOnlyWithoutAPersistentBanner) {
  replaceBelowHook("SBGrabberTongue", "dismissWithStyle:animated:", objc::toImplementation(&recordGrabber));
  Phone phone;
  EXPECT_FALSE(phone.run({{"do", "grabber"}}).at("dismissed"));
  EXPECT_EQ(grabberCalls, 1);
  presentPersistent(phone);
  EXPECT_TRUE(phone.run({{"do", "grabber"}}).at("dismissed"));
  EXPECT_EQ(grabberCalls, 1);
}

std::optional<bool> dismissingDuringTap;

void recordTap(id self, SEL, NSObject*) {
  dismissingDuringTap = static_cast<BannerController*>(static_cast<void*>(self))->isDismissing();
}

TEST(TapHook, DismissesBeforeItCallsThePlatform) {
  replaceBelowHook(shortLook, "_handleTapOnView:", objc::toImplementation(&recordTap));
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(1);
  phone.run({{"do", "tap"}, {"controller", controller}});
  EXPECT_EQ(dismissingDuringTap, true);
}

struct DismissalCall {
  NSInteger transition;
  objc::Block<void(bool)>* completion;
};
std::vector<DismissalCall> dismissalCalls;

void recordDismissal(id, SEL, NSInteger transition, objc::Block<void(bool)>* completion) {
  dismissalCalls.push_back({transition, completion});
}

TEST(DismissalHook, PassesThroughTheDismissalOfAControllerOutsideTheBannerWindow) {
  replaceBelowHook(shortLook, dismissalSelector, objc::toImplementation(&recordDismissal));
  Phone phone;
  const auto outside = springboard::makeShortLookController(controllerOf(phone.present())->notificationRequest());
  dismissalCalls.clear();
  const auto completion = objc::block([](bool) {});
  for (const NSInteger transition : {0, 1, 7, 30}) {
    outside->dismissViewController(transition, completion);
    ASSERT_FALSE(dismissalCalls.empty());
    EXPECT_EQ(dismissalCalls.back().transition, transition);
    EXPECT_EQ(dismissalCalls.back().completion, completion.get());
  }
  EXPECT_EQ(dismissalCalls.size(), 4U);
}

enum class Answer { Finished, Unfinished };
Answer platformsAnswer = Answer::Unfinished;

// Refuses or performs the dismissal.
void answerDismissal(id self, SEL selector, NSInteger transition, objc::Block<void(bool)>* completion) {
  if (platformsAnswer == Answer::Unfinished) {
    if (completion != nullptr) (*completion)(false);
  } else {
    objc::detail::call<void>(test::replacedBelowHook(), self, selector, transition, completion);
  }
}

TEST(DismissalHook, KeepsTheBannerIfThePlatformRefusesAndCanBeRepeated) {
  replaceBelowHook(shortLook, dismissalSelector, objc::toImplementation(&answerDismissal));
  Phone phone;
  const int controller = presentPersistent(phone);
  phone.wait(1);
  controllerOf(controller)->setIsDismissing(true);
  phone.run({{"do", "dismiss"}, {"controller", controller}, {"transition", 30}});
  EXPECT_TRUE(phone.state(controller).at("brim"));
  EXPECT_FALSE(phone.state(controller).at("hasDismissed"));
  EXPECT_FALSE(phone.state(controller).at("isDismissing"));
  EXPECT_FALSE(phone.state(controller).at("dismissNotification"));
  platformsAnswer = Answer::Finished;
  phone.run({{"do", "dismiss"}, {"controller", controller}, {"transition", 30}});
  phone.wait(0);
  EXPECT_FALSE(phone.state(controller).at("brim"));
  EXPECT_TRUE(phone.state(controller).at("hasDismissed"));
}

struct PresentationCall {
  UIViewController* presented;
  bool animated;
  objc::Block<void()>* completion;
};
std::vector<PresentationCall> presentationCalls;

void recordPresentation(id, SEL, UIViewController* presented, bool animated, objc::Block<void()>* completion) {
  presentationCalls.push_back({presented, animated, completion});
}

TEST(PresentationHook, PassesThroughAPresentationOutsideTheBannerWindow) {
  replaceBelowHook("NCNotificationViewController",
                   "presentViewController:animated:completion:", objc::toImplementation(&recordPresentation));
  Phone phone;
  const auto shown = controllerOf(presentPersistent(phone));
  ASSERT_FALSE(BrimContainer::DismissNotification());
  const auto outside = springboard::makeShortLookController(shown->notificationRequest());
  const auto presented = objc::make<UIViewController>();
  const auto completion = objc::block([] {});
  for (const bool animated : {false, true}) {
    objc::send<void, "presentViewController:animated:completion:">(outside.get(), presented.get(), animated,
                                                                   completion.get());
    ASSERT_FALSE(presentationCalls.empty());
    EXPECT_EQ(presentationCalls.back().presented, presented.get());
    EXPECT_EQ(presentationCalls.back().animated, animated);
    EXPECT_EQ(presentationCalls.back().completion, completion.get());
  }
  EXPECT_EQ(presentationCalls.size(), 2U);
}

// The phone of the test, and the events that it logged before the library requested the dismissal.
Phone* loggingPhone;
std::vector<std::string> eventsBeforeDismissal;

void recordDismissalRequest(objc::Original<void(BannerController*, BrimContainer*)> original, BannerController* self,
                            BrimContainer* view) {
  for (const Json& event : loggingPhone->log()) eventsBeforeDismissal.push_back(event.at("event"));
  original(self, view);
}

TEST(Clear, ExecutesTheActionThenVibratesAndThenDismisses) {
  Phone phone;
  loggingPhone = &phone;
  const int controller = presentPersistent(phone);
  phone.wait(1);
  phone.log();
  test::replaceMethod<"forceDismissNotificationForView:", &recordDismissalRequest>(BannerController::classObject());
  controllerOf(controller)->attemptDelete(test::containerOf(controller));
  EXPECT_EQ(eventsBeforeDismissal, (std::vector<std::string>{"action", "haptic"}));
  EXPECT_TRUE(phone.state(controller).at("isDismissing"));
}

struct PhotoRequest {
  bool isInSuperview;
  bool isStored;
  std::string header;
  std::string body;
};
std::vector<PhotoRequest> photoRequests;

void recordPhotoRequest(objc::Original<void(BannerController*, NSString*, NSString*, BrimContainer*)> original,
                        BannerController* self, NSString* header, NSString* body, BrimContainer* view) {
  photoRequests.push_back(
      {view->superview() != nullptr, self->brimView() != nullptr, base::textOf(header), base::textOf(body)});
  original(self, header, body, view);
}

TEST(Attachment, RequestsThePhotoAfterTheLayoutAndBeforeTheBannerIsStored) {
  Phone phone;
  test::replaceMethod<"updateProfilePictureWithHeader:withBody:forView:", &recordPhotoRequest>(
      BannerController::classObject());
  phone.present({{"title", "Anna"}, {"message", "Hello"}});
  phone.run({{"do", "testbanner"}});
  ASSERT_EQ(photoRequests.size(), 2U);
  for (const PhotoRequest& request : photoRequests) {
    EXPECT_TRUE(request.isInSuperview);
    EXPECT_FALSE(request.isStored);
  }
  EXPECT_EQ(photoRequests[0].header, "Anna");
  EXPECT_EQ(photoRequests[0].body, "Hello");
  EXPECT_EQ(photoRequests[1].header, "Brim");
  EXPECT_EQ(photoRequests[1].body, "Test notification");
}

// The observers that were removed from a center, with the names of the notifications.
std::vector<std::pair<const void*, std::string>> removedObservers;

void recordRemoval(objc::Original<void(NSNotificationCenter*, NSObject*, NSString*, NSObject*)> original,
                   NSNotificationCenter* self, NSObject* observer, NSString* name, NSObject* object) {
  removedObservers.emplace_back(observer, base::textOf(name));
  original(self, observer, name, object);
}

TEST(Deallocation, RemovesTheControllerFromTheNotificationCenter) {
  Phone phone;
  const void* address = nullptr;
  {
    const objc::AutoreleasePool pool;
    const auto controller = springboard::makeShortLookController(controllerOf(phone.present())->notificationRequest());
    controller->view();
    address = controller.get();
    test::replaceMethod<"removeObserver:name:object:", &recordRemoval>(NSNotificationCenter::classObject());
  }
  EXPECT_EQ(removedObservers, (std::vector<std::pair<const void*, std::string>>{{address, "BrimNotification"}}));
}

TEST(Deallocation, RemovesTheHomeScreenFromTheDistributedNotificationCenter) {
  Phone phone;
  const void* address = nullptr;
  {
    const objc::AutoreleasePool pool;
    const auto homeScreen = objc::make<SBHomeScreenViewController>();
    objc::send<void, "viewDidLoad">(homeScreen.get());
    address = homeScreen.get();
    test::replaceMethod<"removeObserver:name:object:", &recordRemoval>(NSDistributedNotificationCenter::classObject());
  }
  EXPECT_EQ(removedObservers,
            (std::vector<std::pair<const void*, std::string>>{{address, "com.lumetra.brim.receivedbannertest"}}));
}

TEST(Deallocation, OlderControllerSetsDismissNotificationAfterTheNewestOneIsDeallocated) {
  Phone phone;
  const int older = phone.present({{"title", "One"}});
  const auto controller = controllerOf(older);
  const auto banner = objc::retain(controller->brimView());
  const int newest = phone.present({{"title", "Two"}});
  controller->expandBanner(1000, banner, false, nullptr);
  ASSERT_TRUE(BrimContainer::DismissNotification());
  phone.wait(20);
  ASSERT_EQ(controllerOf(newest), nullptr);
  banner->updateHeight(banner->defaultHeight());
  controller->expandBanner(1000, banner, false, nullptr);
  EXPECT_FALSE(BrimContainer::DismissNotification());
}

std::vector<std::string> generatorCalls;

void recordPreparation(objc::Original<void(UINotificationFeedbackGenerator*)> original,
                       UINotificationFeedbackGenerator* self) {
  generatorCalls.emplace_back("prepare");
  original(self);
}

void recordHaptic(objc::Original<void(UINotificationFeedbackGenerator*, NSInteger)> original,
                  UINotificationFeedbackGenerator* self, NSInteger type) {
  generatorCalls.emplace_back("notificationOccurred:");
  original(self, type);
}

TEST(HapticGenerator, IsPreparedBeforeItIsUsed) {
  Phone phone;
  const int controller = phone.present();
  phone.wait(1);
  Class generator = UINotificationFeedbackGenerator::classObject();
  test::replaceMethod<"prepare", &recordPreparation>(generator);
  test::replaceMethod<"notificationOccurred:", &recordHaptic>(generator);
  controllerOf(controller)->attemptDelete(test::containerOf(controller));
  EXPECT_EQ(generatorCalls, (std::vector<std::string>{"prepare", "notificationOccurred:"}));
}

}  // namespace
