// NSDictionary and NSMutableDictionary: objects by key.
#pragma once

#include "platform/ns_array.hpp"

class NSDictionary : public objc::Interface<"NSDictionary", NSObject> {
 public:
  static NSDictionary* dictionary() { return objc::send<NSDictionary*, "dictionary">(classObject()); }
  NSUInteger count() const { return objc::send<NSUInteger, "count">(this); }
  NSObject* objectForKey(const NSObject* key) const {
    return objc::send<NSObject*, "objectForKey:">(this, const_cast<NSObject*>(key));
  }
  // In the dictionary's own enumeration order.
  NSArray* allKeys() const { return objc::send<NSArray*, "allKeys">(this); }
  // Where the dictionary holds the attributes of a file: such as "NSFileTypeRegular".
  NSString* fileType() const { return objc::send<NSString*, "fileType">(this); }
};

class NSMutableDictionary : public objc::Interface<"NSMutableDictionary", NSDictionary> {
 public:
  static NSMutableDictionary* dictionaryWithCapacity(NSUInteger capacity) {
    return objc::send<NSMutableDictionary*, "dictionaryWithCapacity:">(classObject(), capacity);
  }
  void setObject(const NSObject* value, const NSObject* key) {
    objc::send<void, "setObject:forKey:">(this, const_cast<NSObject*>(value), const_cast<NSObject*>(key));
  }
};
