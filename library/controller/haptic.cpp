#include "library/controller/haptic.hpp"

#include "library/settings/settings.hpp"
#include "platform/audio_toolbox.hpp"
#include "platform/ns_number.hpp"
#include "platform/ui_device.hpp"
#include "platform/ui_notification_feedback_generator.hpp"

namespace {

constexpr SystemSoundID strongPop = 1520;
constexpr SystemSoundID plainVibration = 4095;
// The platform's numbers for a device with a haptic engine, and for a device with the predecessor of that engine. Any
// other device only vibrates.
constexpr NSInteger hapticEngine = 2;
constexpr NSInteger tapticEngine = 1;
constexpr NSInteger noEngine = 0;

NSInteger feedbackSupportLevel() {
  UIDevice* const device = UIDevice::currentDevice();
  // Without this check, valueForKey would raise an exception on a system that lacks the property.
  if (!respondsTo<"_feedbackSupportLevel">(device)) return noEngine;
  return objc::as<NSNumber>(device->valueForKey("_feedbackSupportLevel"_ns))->integerValue();
}

void vibrateAt(NSInteger level) {
  if (level == tapticEngine) {
    AudioServicesPlaySystemSound(strongPop);
  } else {
    AudioServicesPlayAlertSound(plainVibration);
  }
}

}  // namespace

void confirmWithHaptic() {
  if (!settings::vibrate_on_send) return;
  const NSInteger level = feedbackSupportLevel();
  if (level != hapticEngine) {
    vibrateAt(level);
    return;
  }
  const auto generator = objc::make<UINotificationFeedbackGenerator>();
  generator->prepare();
  generator->notificationOccurred(UINotificationFeedbackType::Success);
}

void vibrate() { vibrateAt(feedbackSupportLevel()); }
