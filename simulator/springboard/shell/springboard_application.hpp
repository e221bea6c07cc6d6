// The application object of the home screen, which handles the hardware buttons and launches applications. Main thread.
#pragma once

#include <string>

#include "platform/ns_string.hpp"
#include "platform/ui_window.hpp"

class SpringBoard : public objc::Interface<"SpringBoard", UIApplication> {
 public:
  static SpringBoard* shared() { return static_cast<SpringBoard*>(UIApplication::sharedApplication()); }
  // Returns whether the application was launched. `suspended` launches it in the background.
  bool launchApplication(NSString* bundleIdentifier, bool suspended) {
    return objc::send<bool, "launchApplicationWithIdentifier:suspended:">(this, bundleIdentifier, suspended);
  }
};

namespace springboard {

// The press type of the home button. A press of force 1 pushes the button down; a press of force 0 releases it.
inline constexpr NSInteger homeButtonPress = 101;

// Simulates the hardware: sends an event with one press to the application.
void pressButton(NSInteger type, double force);

void defineApplication();

}  // namespace springboard
