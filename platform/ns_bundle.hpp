// NSBundle: a folder with localized strings and resources.
#pragma once

#include "platform/ns_string.hpp"

class NSBundle : public objc::Interface<"NSBundle", NSObject> {
 public:
  // Returns nil if there is no folder at the path.
  static NSBundle* bundleWithPath(NSString* path) {
    return objc::send<NSBundle*, "bundleWithPath:">(classObject(), path);
  }
  // Returns nil if the process has not opened a bundle with this identifier.
  static NSBundle* bundleWithIdentifier(NSString* identifier) {
    return objc::send<NSBundle*, "bundleWithIdentifier:">(classObject(), identifier);
  }
  // Returns `fallback` if the bundle has no string for the key.
  NSString* localizedString(NSString* key, NSString* fallback) const {
    return objc::send<NSString*, "localizedStringForKey:value:table:">(this, key, fallback,
                                                                       static_cast<NSString*>(nullptr));
  }
  // Returns nil if the bundle has no such resource or the name is nil.
  NSString* pathForResource(NSString* name, NSString* type) const {
    return objc::send<NSString*, "pathForResource:ofType:">(this, name, type);
  }
};
