// A target of controls that logs the actions sent to it.
#pragma once

#include "platform/ui_control.hpp"
#include "tests/uikit/uikit_fixture.hpp"

namespace test {

// Implements -plain, -withSender:, -withSender:event: and an action for each editing event.
class ControlTarget : public objc::Interface<"ControlTarget", NSObject> {
 public:
  static objc::Ref<ControlTarget> make();
};

// Makes `target` log all editing events of `field`.
void logEditingEvents(ControlTarget* target, UIControl* field);

}  // namespace test
