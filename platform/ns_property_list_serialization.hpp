// NSPropertyListSerialization: parses property lists in any of their formats. The input can be untrusted.
#pragma once

#include "platform/ns_data.hpp"

class NSPropertyListSerialization : public objc::Interface<"NSPropertyListSerialization", NSObject> {
 public:
  // Returns the root object, which can have any property-list type; nil if the data is not a property list.
  static NSObject* propertyList(NSData* data) {
    return objc::send<NSObject*, "propertyListWithData:options:format:error:">(
        classObject(), data, NSUInteger{0}, static_cast<void*>(nullptr), static_cast<void*>(nullptr));
  }
};
