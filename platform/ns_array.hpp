// NSArray and NSMutableArray: ordered collections of objects. An element is never nil. An array retains its elements.
#pragma once

#include "platform/ns_object.hpp"

class NSArray : public objc::Interface<"NSArray", NSObject> {
 public:
  NSUInteger count() const { return objc::send<NSUInteger, "count">(this); }
  // Raises a range exception if the index is not less than the count.
  NSObject* objectAtIndex(NSUInteger index) const { return objc::send<NSObject*, "objectAtIndex:">(this, index); }
  // Returns nil if the array is empty.
  NSObject* firstObject() const { return count() == 0 ? nullptr : objectAtIndex(0); }
  objc::Ref<NSArray> copied() const { return objc::adopt(objc::send<NSArray*, "copy">(this)); }
};

class NSMutableArray : public objc::Interface<"NSMutableArray", NSArray> {
 public:
  static NSMutableArray* array() { return objc::send<NSMutableArray*, "array">(classObject()); }
  // Raises an exception if the object is nil.
  void addObject(const NSObject* object) { objc::send<void, "addObject:">(this, const_cast<NSObject*>(object)); }
};
