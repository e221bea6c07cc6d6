// NSPropertyListSerialization: property lists from their bytes, in any of their formats.
#pragma once

#include "platform/ns_data.hpp"

class NSPropertyListSerialization : public objc::Interface<"NSPropertyListSerialization", NSObject> {
 public:
  // nil where the data is no property list.
  static NSObject* propertyList(NSData* data) {
    return objc::send<NSObject*, "propertyListWithData:options:format:error:">(
        classObject(), data, NSUInteger{0}, static_cast<void*>(nullptr), static_cast<void*>(nullptr));
  }
};
