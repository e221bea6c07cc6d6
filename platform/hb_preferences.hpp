// HBPreferences: typed settings of one preferences domain, bound to variables and kept up to date.
#pragma once

#include "platform/ns_string.hpp"

class HBPreferences : public objc::Interface<"HBPreferences", NSObject> {
 public:
  static objc::Ref<HBPreferences> withIdentifier(NSString* domain) {
    return objc::adopt(objc::send<HBPreferences*, "initWithIdentifier:">(objc::allocate<HBPreferences>(), domain));
  }
  // From now on `variable` holds the stored value, or the default while none of a fitting type is stored. The variable
  // must outlive the preferences object.
  void registerBool(bool* variable, bool defaultValue, NSString* key) {
    objc::send<void, "registerBool:default:forKey:">(this, variable, defaultValue, key);
  }
  void registerInteger(NSInteger* variable, NSInteger defaultValue, NSString* key) {
    objc::send<void, "registerInteger:default:forKey:">(this, variable, defaultValue, key);
  }
};
