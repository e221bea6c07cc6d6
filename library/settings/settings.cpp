#include "library/settings/settings.hpp"

#include "platform/hb_preferences.hpp"

namespace settings {

#define BRIM_SETTING(type, variable, key, defaultValue) type variable;
#include "library/settings/settings_list.hpp"

namespace {

struct Setting {
  constexpr Setting(const char* storedKey, bool* boundVariable, bool valueIfNotStored)
      : key(storedKey), flag(boundVariable), defaultValue(valueIfNotStored) {}
  constexpr Setting(const char* storedKey, NSInteger* boundVariable, NSInteger valueIfNotStored)
      : key(storedKey), number(boundVariable), defaultValue(valueIfNotStored) {}

  const char* key;
  // One of the two is null.
  bool* flag = nullptr;
  NSInteger* number = nullptr;
  NSInteger defaultValue;
};

constexpr Setting table[] = {
#define BRIM_SETTING(type, variable, key, defaultValue) {key, &(variable), defaultValue},
#include "library/settings/settings_list.hpp"
};

// Lives until the process ends, because it writes the variables.
HBPreferences* preferences;

void registerSetting(const Setting& setting) {
  NSString* key = NSString::stringWithUTF8String(setting.key);
  if (setting.flag != nullptr) {
    preferences->registerBool(setting.flag, setting.defaultValue != 0, key);
  } else {
    preferences->registerInteger(setting.number, setting.defaultValue, key);
  }
}

}  // namespace

void registerAll() {
  preferences = HBPreferences::withIdentifier("com.marrowgate.brimprefs"_ns).leak();
  for (const Setting& setting : table) registerSetting(setting);
}

}  // namespace settings
