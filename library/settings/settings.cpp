#include "library/settings/settings.hpp"

namespace settings {

#define BRIM_SETTING(type, variable, key, defaultValue) type variable;
#include "library/settings/settings_list.hpp"

HBPreferences* pfs;

namespace {

struct Setting {
  constexpr Setting(const char* storedKey, bool* boundVariable, bool valueIfNotStored)
      : key(storedKey), flag(boundVariable), defaultValue(valueIfNotStored) {}
  constexpr Setting(const char* storedKey, NSInteger* boundVariable, NSInteger valueIfNotStored)
      : key(storedKey), number(boundVariable), defaultValue(valueIfNotStored) {}

  const char* key;
  // The setting's variable. Depending on the setting's type, one of the two pointers is null.
  bool* flag = nullptr;
  NSInteger* number = nullptr;
  NSInteger defaultValue;
};

constexpr Setting table[] = {
#define BRIM_SETTING(type, variable, key, defaultValue) {key, &(variable), defaultValue},
#include "library/settings/settings_list.hpp"
};

void registerSetting(const Setting& setting) {
  NSString* key = NSString::stringWithUTF8String(setting.key);
  if (setting.flag != nullptr) {
    pfs->registerBool(setting.flag, setting.defaultValue != 0, key);
  } else {
    pfs->registerInteger(setting.number, setting.defaultValue, key);
  }
}

}  // namespace

void registerAll() {
  pfs = HBPreferences::withIdentifier("com.marrowgate.brimprefs"_ns).leak();
  for (const Setting& setting : table) registerSetting(setting);
}

}  // namespace settings
