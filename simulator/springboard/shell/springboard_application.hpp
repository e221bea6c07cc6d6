// The home screen's application object, and the presses of the phone's buttons that reach it.
#pragma once

#include <string>

#include "platform/ns_string.hpp"
#include "platform/ui_window.hpp"

class SpringBoard : public objc::Interface<"SpringBoard", UIApplication> {
 public:
  static SpringBoard* shared() { return static_cast<SpringBoard*>(UIApplication::sharedApplication()); }
  bool launchApplication(NSString* bundleIdentifier, bool suspended) {
    return objc::send<bool, "launchApplicationWithIdentifier:suspended:">(this, bundleIdentifier, suspended);
  }
};

namespace springboard {

// The home button's press type; it is released at a force of 0.
inline constexpr NSInteger homeButtonPress = 101;

// What the hardware does: one press of that type and force, as an event of its own.
void pressButton(NSInteger type, double force);

void defineApplication();

}  // namespace springboard
