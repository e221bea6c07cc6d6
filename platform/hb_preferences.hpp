// HBPreferences: binds the settings of a preferences domain to variables and updates the variables when the settings
// change. Main thread only.
#pragma once

#include "platform/ns_string.hpp"

class HBPreferences : public objc::Interface<"HBPreferences", NSObject> {
 public:
  static objc::Ref<HBPreferences> withIdentifier(NSString* domain) {
    return objc::adopt(objc::send<HBPreferences*, "initWithIdentifier:">(objc::allocate<HBPreferences>(), domain));
  }
  // Sets `variable` to the stored value immediately and after each change. If no value is stored, or the stored value
  // has another type, sets `variable` to the default. The variable must outlive the preferences object.
  void registerBool(bool* variable, bool defaultValue, NSString* key) {
    objc::send<void, "registerBool:default:forKey:">(this, variable, defaultValue, key);
  }
  void registerInteger(NSInteger* variable, NSInteger defaultValue, NSString* key) {
    objc::send<void, "registerInteger:default:forKey:">(this, variable, defaultValue, key);
  }
};
