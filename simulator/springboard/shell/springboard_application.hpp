// The application object of the home screen, which handles the hardware buttons and launches applications. Main thread.
#pragma once

#include <string>

#include "platform/ns_string.hpp"
#include "platform/ui_window.hpp"

class SpringBoard : public objc::Interface<"SpringBoard", UIApplication> {
 public:
  static SpringBoard* shared() { return static_cast<SpringBoard*>(UIApplication::sharedApplication()); }
  // Launches an application, in the background if `suspended` is true. Returns whether it was launched.
  bool launchApplication(NSString* bundleIdentifier, bool suspended) {
    return objc::send<bool, "launchApplicationWithIdentifier:suspended:">(this, bundleIdentifier, suspended);
  }
};

namespace springboard {

// The press types of the buttons. A press with a force of 1 pushes the button down. A press with a force of 0 releases
// it. The volume buttons change nothing; the event log contains their presses.
inline constexpr NSInteger homeButtonPress = 101;
inline constexpr NSInteger volumeUpPress = 102;
inline constexpr NSInteger volumeDownPress = 103;

// Simulates a hardware button. Sends an event with one press to the application.
void pressButton(NSInteger type, double force);

void defineApplication();

}  // namespace springboard
