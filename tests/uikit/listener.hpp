// A target that writes down which of its actions it was sent.
#pragma once

#include "platform/ui_control.hpp"
#include "tests/uikit/stage.hpp"

namespace test {

// Knows -plain, -withSender:, -withSender:event:, and an action for each event of editing.
class Listener : public objc::Interface<"Listener", NSObject> {
 public:
  static objc::Ref<Listener> make();
};

// Lets the listener write down what happens to a text field, by the events' names.
void listenToEditing(Listener* listener, UIControl* field);

}  // namespace test
