#include "simulator/springboard/shell/springboard_application.hpp"

#include <nlohmann/json.hpp>

#include "objc/property_entry.hpp"
#include "simulator/base/event_log.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/springboard/banner/banner_presenter.hpp"
#include "simulator/springboard/services/messages_process.hpp"
#include "simulator/springboard/shell/application_page.hpp"
#include "simulator/springboard/shell/lock_screen.hpp"
#include "simulator/springboard/shell/notification_center.hpp"

class NSSet : public objc::Interface<"NSSet", NSObject> {
 public:
  static NSSet* setWithObject(NSObject* member) { return objc::send<NSSet*, "setWithObject:">(classObject(), member); }
  NSObject* anyObject() const { return objc::send<NSObject*, "anyObject">(this); }
};

class UIPress : public objc::Interface<"UIPress", NSObject> {
 public:
  NSInteger type() const { return objc::send<NSInteger, "type">(this); }
  CGFloat force() const { return objc::send<CGFloat, "force">(this); }
};

class UIPressesEvent : public objc::Interface<"UIPressesEvent", NSObject> {
 public:
  NSSet* allPresses() const { return objc::send<NSSet*, "allPresses">(this); }
};

struct PressState {
  NSInteger type = 0;
  CGFloat force = 0;
};
template <>
struct objc::StateOf<UIPress> {
  using Type = PressState;
};

struct PressesEventState {
  objc::Ref<NSSet> allPresses;
};
template <>
struct objc::StateOf<UIPressesEvent> {
  using Type = PressesEventState;
};

namespace springboard {

namespace {

constexpr const char* messagesIdentifier = "com.apple.MobileSMS";

// Releasing the home button dismisses all banners and unlocks the phone. If the phone is not locked, it closes the
// notification center if that is open, and otherwise the page of an application.
bool handlePhysicalButtonEvent(SpringBoard*, UIPressesEvent* event) {
  const auto* press = objc::as<UIPress>(event->allPresses()->anyObject());
  if (press == nullptr) return true;
  const bool isVolume = press->type() == volumeUpPress || press->type() == volumeDownPress;
  if (isVolume && press->force() >= 1)
    base::recordEvent("volume", {{"button", press->type() == volumeUpPress ? "up" : "down"}});
  if (press->type() != homeButtonPress || press->force() >= 1) return true;
  dismissAllBanners();
  if (isNotificationCenterOpen())
    closeNotificationCenter(NotificationCenterChange::Animated);
  else if (!SBLockScreenManager::sharedInstance()->isUILocked())
    closeApplicationPage();
  SBLockScreenManager::sharedInstance()->unlock();
  return true;
}

bool launchApplication(SpringBoard*, NSString* bundleIdentifier, bool suspended) {
  base::recordEvent("launch", {{"bundle", base::jsonOf(bundleIdentifier)}, {"suspended", suspended}});
  if (bundleIdentifier == nullptr) return false;
  // The cover sheet is removed later, because callers can still use its views.
  if (!suspended) {
    foundation::onMainThread([] {
      SBLockScreenManager::sharedInstance()->unlock();
      closeNotificationCenter(NotificationCenterChange::Animated);
    });
  }
  // The simulator starts a process only if Messages is launched in the background. Any other launch succeeds without
  // starting a process.
  return !suspended || base::textOf(bundleIdentifier) != messagesIdentifier || launchMessages();
}

void definePresses() {
  static constexpr objc::PropertyEntry press[] = {
      objc::readOnly<"type", UIPress, &PressState::type>(),
      objc::readOnly<"force", UIPress, &PressState::force>(),
  };
  static constexpr objc::PropertyEntry event[] = {
      objc::readOnly<"allPresses", UIPressesEvent, &PressesEventState::allPresses>()};
  objc::defineClassWithState<UIPress>({});
  objc::addProperties(UIPress::classObject(), press);
  objc::defineClassWithState<UIPressesEvent>({});
  objc::addProperties(UIPressesEvent::classObject(), event);
}

}  // namespace

void pressButton(NSInteger type, double force) {
  auto press = objc::make<UIPress>();
  objc::state(press.get()) = {type, force};
  auto event = objc::make<UIPressesEvent>();
  objc::state(event.get()).allPresses = objc::retain(NSSet::setWithObject(press));
  objc::send<bool, "_handlePhysicalButtonEvent:">(SpringBoard::shared(), event.get());
}

void defineApplication() {
  definePresses();
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"_handlePhysicalButtonEvent:", &handlePhysicalButtonEvent>(),
  };
  static constexpr objc::MethodEntry launching[] = {
      objc::method<"launchApplicationWithIdentifier:suspended:", &launchApplication>(),
  };
  objc::defineClass<SpringBoard>(methods);
  objc::addCategory(UIApplication::classObject(), launching);
}

}  // namespace springboard
