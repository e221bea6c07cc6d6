// What the library tells about itself to those that ask by symbol name: which methods it installed, which settings it
// holds.
#pragma once

#include <cstddef>
#include <cstdint>

#include "objc/hook.hpp"

using BrimInstalledMethod = objc::InstalledMethod;

enum class BrimSettingType : std::uint8_t { Bool = 0, Integer = 1 };

// The variable is a bool or an NSInteger and lives as long as the library.
struct BrimSetting {
  const char* key;
  BrimSettingType type;
  const void* variable;
};

extern "C" {
// Such as "1.0.0". Any thread.
const char* brim_version();
// In installation order; a property is its getter and then its setter. The list belongs to the library and does not
// change once the library is loaded. Main thread.
const BrimInstalledMethod* brim_installed_methods(std::size_t* count);
// In registration order; the same holds.
const BrimSetting* brim_settings(std::size_t* count);
}
