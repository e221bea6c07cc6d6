// Sounds and haptics. The simulator records them in the event log instead of playing them.
#pragma once

#include <cstdint>

#include "platform/ns_object.hpp"

class UIFeedbackGenerator : public objc::Interface<"UIFeedbackGenerator", NSObject> {};
class UINotificationFeedbackGenerator : public objc::Interface<"UINotificationFeedbackGenerator", UIFeedbackGenerator> {
};

// Record the event "sound" with the name of the call and the sound's number. Any thread.
extern "C" void AudioServicesPlaySystemSound(std::uint32_t sound);
extern "C" void AudioServicesPlayAlertSound(std::uint32_t sound);

namespace springboard {

// Defines the haptics classes, which record the event "haptic".
void defineFeedback();

}  // namespace springboard
