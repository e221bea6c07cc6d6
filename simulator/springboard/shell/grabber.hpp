// The grabber at the screen's edge, whose gesture takes away what lies above the home screen.
#pragma once

#include "platform/ns_object.hpp"

class SBGrabberTongue : public objc::Interface<"SBGrabberTongue", NSObject> {
 public:
  static SBGrabberTongue* sharedInstance() { return objc::send<SBGrabberTongue*, "sharedInstance">(classObject()); }
  // Whether the gesture took something away.
  bool dismiss(NSInteger style, bool animated) {
    return objc::send<bool, "dismissWithStyle:animated:">(this, style, animated);
  }
};

namespace springboard {

void defineGrabber();

}  // namespace springboard
