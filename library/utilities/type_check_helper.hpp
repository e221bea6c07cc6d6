// TypeCheckHelper: the name of an object's type, for diagnostics. The class name is fixed by the interface. Any thread.
#pragma once

#include "platform/ns_string.hpp"

class TypeCheckHelper : public objc::Interface<"TypeCheckHelper", NSObject> {
 public:
  // One of six known class names, or "Undefined(...)" with the actual class name. The object can be nil.
  static NSString* getTypeOf(NSObject* object) { return objc::send<NSString*, "getTypeOf:">(classObject(), object); }
};

// Call once. Returns false if the class cannot be defined.
bool registerTypeCheckHelper();
