// The grabber at the edge of the screen. Its gesture dismisses banners. Main thread.
#pragma once

#include "platform/ns_object.hpp"

class SBGrabberTongue : public objc::Interface<"SBGrabberTongue", NSObject> {
 public:
  static SBGrabberTongue* sharedInstance() { return objc::send<SBGrabberTongue*, "sharedInstance">(classObject()); }
  // Dismisses all banners. Returns whether any banner was on the screen.
  bool dismiss(NSInteger style, bool animated) {
    return objc::send<bool, "dismissWithStyle:animated:">(this, style, animated);
  }
};

namespace springboard {

void defineGrabber();

}  // namespace springboard
