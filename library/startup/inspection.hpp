// The two functions that the library exports: they report its installed methods and its settings. Callers look them up
// by their symbol names. Main thread.
#pragma once

#include <cstddef>
#include <cstdint>

#include "objc/hook.hpp"

using BrimInstalledMethod = objc::InstalledMethod;

enum class BrimSettingType : std::uint8_t { Bool = 0, Integer = 1 };

struct BrimSetting {
  const char* key;
  BrimSettingType type;
  // A bool or an NSInteger, valid until the process ends.
  const void* variable;
};

// The lists store the number of entries at `count`. The library owns the entries; they are valid until the process ends
// and do not change after the library is loaded.
extern "C" {
// The version, such as "1.0.0". Any thread.
const char* brim_version();
// In installation order. A property is its getter and then its setter.
const BrimInstalledMethod* brim_installed_methods(std::size_t* count);
// In registration order.
const BrimSetting* brim_settings(std::size_t* count);
}
