// UIResponder: an element of the responder chain. An event that an element does not handle is passed to the next
// element.
#pragma once

#include "platform/ns_object.hpp"

class UIResponder : public objc::Interface<"UIResponder", NSObject> {
 public:
  // The next element of the chain; nil for the last element.
  UIResponder* nextResponder() const { return objc::send<UIResponder*, "nextResponder">(this); }
  // These two functions return false if the change was refused.
  bool becomeFirstResponder() { return objc::send<bool, "becomeFirstResponder">(this); }
  bool resignFirstResponder() { return objc::send<bool, "resignFirstResponder">(this); }
  bool isFirstResponder() const { return objc::send<bool, "isFirstResponder">(this); }
};
