// TypeCheckHelper: the name of an object's type, for diagnostics. The name of the class is part of the library's public
// interface; do not change it. Any thread.
#pragma once

#include "platform/ns_string.hpp"

class TypeCheckHelper : public objc::Interface<"TypeCheckHelper", NSObject> {
 public:
  // Returns one of six known class names, or "Undefined(NAME)" with the actual class name. If the object is nil, the
  // result is "Undefined((null))".
  static NSString* getTypeOf(NSObject* object) { return objc::send<NSString*, "getTypeOf:">(classObject(), object); }
};

// Call once. Returns false if the class cannot be defined.
bool registerTypeCheckHelper();
