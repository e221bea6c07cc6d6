// NSObject: the root class, and the platform's integer types.
//
// Conventions in all headers of this folder: A member function sends one message to its object. Arguments are borrowed.
// A returned pointer is borrowed and autoreleased; a returned objc::Ref is owned. A call on nil does nothing and
// returns nil, zero or false. Properties, completion blocks and userInfo dictionaries can be nil; other arguments must
// not be nil unless a comment permits it. Use views, controls, recognizers and controllers only on the main thread.
// Values such as strings and dictionaries can be used on any thread. Lengths are in points, durations in seconds.
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
  // Key-value coding: the value of the property with this name. Raises an exception if there is no such property.
  NSObject* valueForKey(NSString* key) const { return objc::send<NSObject*, "valueForKey:">(this, key); }
};

// Returns whether the object responds to the selector with this name. Returns false for nil.
template <objc::FixedString name>
bool respondsTo(const NSObject* object) {
  return object != nullptr && object->respondsToSelector(objc::selector<name>());
}
