#include "simulator/springboard/services/feedback.hpp"

#include <nlohmann/json.hpp>

#include "objc/class_definition.hpp"
#include "simulator/base/event_log.hpp"

namespace springboard {

namespace {

// -prepare does nothing, because the simulator has no haptics hardware.
void prepare(UIFeedbackGenerator*) {}

void notificationOccurred(UINotificationFeedbackGenerator*, NSInteger type) {
  base::recordEvent("haptic", {{"type", type}});
}

}  // namespace

void defineFeedback() {
  static constexpr objc::MethodEntry generator[] = {objc::method<"prepare", &prepare>()};
  static constexpr objc::MethodEntry notification[] = {objc::method<"notificationOccurred:", &notificationOccurred>()};
  objc::defineClass<UIFeedbackGenerator>(generator);
  objc::defineClass<UINotificationFeedbackGenerator>(notification);
}

}  // namespace springboard

void AudioServicesPlaySystemSound(std::uint32_t sound) {
  base::recordEvent("sound", {{"call", "system"}, {"id", sound}});
}

void AudioServicesPlayAlertSound(std::uint32_t sound) {
  base::recordEvent("sound", {{"call", "alert"}, {"id", sound}});
}
