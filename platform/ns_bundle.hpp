// NSBundle: localized strings and resources in a folder.
#pragma once

#include "platform/ns_string.hpp"

class NSBundle : public objc::Interface<"NSBundle", NSObject> {
 public:
  // nil where there is no folder at the path.
  static NSBundle* bundleWithPath(NSString* path) {
    return objc::send<NSBundle*, "bundleWithPath:">(classObject(), path);
  }
  NSString* localizedString(NSString* key, NSString* fallback) const {
    return objc::send<NSString*, "localizedStringForKey:value:table:">(this, key, fallback,
                                                                       static_cast<NSString*>(nullptr));
  }
  // nil where there is no such resource, or no name.
  NSString* pathForResource(NSString* name, NSString* type) const {
    return objc::send<NSString*, "pathForResource:ofType:">(this, name, type);
  }
};
