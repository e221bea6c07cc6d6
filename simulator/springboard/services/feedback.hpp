// Sounds and haptics: heard and felt as entries of the event log.
#pragma once

#include <cstdint>

#include "platform/ns_object.hpp"

class UIFeedbackGenerator : public objc::Interface<"UIFeedbackGenerator", NSObject> {};
class UINotificationFeedbackGenerator : public objc::Interface<"UINotificationFeedbackGenerator", UIFeedbackGenerator> {
};

// Any thread. What is recorded tells the two apart.
extern "C" void AudioServicesPlaySystemSound(std::uint32_t sound);
extern "C" void AudioServicesPlayAlertSound(std::uint32_t sound);

namespace springboard {

void defineFeedback();

}  // namespace springboard
