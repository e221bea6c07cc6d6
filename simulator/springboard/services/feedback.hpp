// Sounds and haptics. The simulator records them in the event log instead of playing them.
#pragma once

#include <cstdint>

#include "platform/ns_object.hpp"

class UIFeedbackGenerator : public objc::Interface<"UIFeedbackGenerator", NSObject> {};
class UINotificationFeedbackGenerator : public objc::Interface<"UINotificationFeedbackGenerator", UIFeedbackGenerator> {
};

// Record the event "sound" with the kind of call and the number of the sound. Any thread.
extern "C" void AudioServicesPlaySystemSound(std::uint32_t sound);
extern "C" void AudioServicesPlayAlertSound(std::uint32_t sound);

namespace springboard {

// Defines the haptics classes, which record the event "haptic". Main thread.
void defineFeedback();

}  // namespace springboard
