// TypeCheckHelper: a readable name of an object's type. Any thread.
#pragma once

#include "platform/ns_string.hpp"

class TypeCheckHelper : public objc::Interface<"TypeCheckHelper", NSObject> {
 public:
  // The object may be nil.
  static NSString* getTypeOf(NSObject* object) { return objc::send<NSString*, "getTypeOf:">(classObject(), object); }
};

void registerTypeCheckHelper();
