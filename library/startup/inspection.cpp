#include "library/startup/inspection.hpp"

#include "library/settings/settings.hpp"
#include "library/startup/hook_table.hpp"

namespace {

constexpr BrimSetting entry(const char* key, const bool* variable) { return {key, BrimSettingType::Bool, variable}; }
constexpr BrimSetting entry(const char* key, const NSInteger* variable) {
  return {key, BrimSettingType::Integer, variable};
}

constexpr BrimSetting settingEntries[] = {
#define BRIM_SETTING(type, variable, key, defaultValue) entry(key, &settings::variable),
#include "library/settings/settings_list.hpp"
};

}  // namespace

extern "C" [[gnu::visibility("default")]] const char* brim_version() { return BRIM_VERSION; }

extern "C" [[gnu::visibility("default")]] const BrimInstalledMethod* brim_installed_methods(std::size_t* count) {
  *count = installedMethods().size();
  return installedMethods().data();
}

extern "C" [[gnu::visibility("default")]] const BrimSetting* brim_settings(std::size_t* count) {
  *count = sizeof settingEntries / sizeof *settingEntries;
  return settingEntries;
}
