// NSDictionary and NSMutableDictionary: maps from keys to objects. A dictionary copies its keys and retains its
// objects.
#pragma once

#include "platform/ns_array.hpp"

class NSDictionary : public objc::Interface<"NSDictionary", NSObject> {
 public:
  static NSDictionary* dictionary() { return objc::send<NSDictionary*, "dictionary">(classObject()); }
  NSUInteger count() const { return objc::send<NSUInteger, "count">(this); }
  // Returns nil if the dictionary does not contain the key.
  NSObject* objectForKey(const NSObject* key) const {
    return objc::send<NSObject*, "objectForKey:">(this, const_cast<NSObject*>(key));
  }
  // The keys, in unspecified order.
  NSArray* allKeys() const { return objc::send<NSArray*, "allKeys">(this); }
  // The type of a file, such as "NSFileTypeRegular". Call this function only on a result from
  // NSFileManager::attributes.
  NSString* fileType() const { return objc::send<NSString*, "fileType">(this); }
};

class NSMutableDictionary : public objc::Interface<"NSMutableDictionary", NSDictionary> {
 public:
  static NSMutableDictionary* dictionaryWithCapacity(NSUInteger capacity) {
    return objc::send<NSMutableDictionary*, "dictionaryWithCapacity:">(classObject(), capacity);
  }
  // Raises an exception if the value or the key is nil.
  void setObject(const NSObject* value, const NSObject* key) {
    objc::send<void, "setObject:forKey:">(this, const_cast<NSObject*>(value), const_cast<NSObject*>(key));
  }
};
