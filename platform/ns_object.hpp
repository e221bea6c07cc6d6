// NSObject: the root class, and the integer types of the platform.
#pragma once

#include "objc/ownership.hpp"
#include "objc/send.hpp"

using NSInteger = std::int64_t;
using NSUInteger = std::uint64_t;

class NSString;

class NSObject : public objc::Interface<"NSObject", objc::Object> {
 public:
  bool isKindOfClass(Class wanted) const { return objc::send<bool, "isKindOfClass:">(this, wanted); }
  bool respondsToSelector(SEL selector) const { return objc::send<bool, "respondsToSelector:">(this, selector); }
  bool isEqual(const NSObject* other) const { return objc::send<bool, "isEqual:">(this, const_cast<NSObject*>(other)); }
  NSString* description() const { return objc::send<NSString*, "description">(this); }
  NSObject* valueForKey(NSString* key) const { return objc::send<NSObject*, "valueForKey:">(this, key); }
};

// Whether the object, nil included, answers a message of that name.
template <objc::FixedString name>
bool answers(const NSObject* object) {
  return object != nullptr && object->respondsToSelector(objc::selector<name>());
}
