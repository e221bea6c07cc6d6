// UIResponder: a link of the chain that events travel.
#pragma once

#include "platform/ns_object.hpp"

class UIResponder : public objc::Interface<"UIResponder", NSObject> {
 public:
  UIResponder* nextResponder() const { return objc::send<UIResponder*, "nextResponder">(this); }
  bool becomeFirstResponder() { return objc::send<bool, "becomeFirstResponder">(this); }
  bool resignFirstResponder() { return objc::send<bool, "resignFirstResponder">(this); }
  bool isFirstResponder() const { return objc::send<bool, "isFirstResponder">(this); }
};
