// The functions that the library exports. They report its version, its installed methods and its settings. Programs
// look them up by their symbol names. Main thread, except where a comment states otherwise.
#pragma once

#include <cstddef>
#include <cstdint>

#include "objc/hook_installation.hpp"

using BrimInstalledMethod = objc::InstalledMethod;

enum class BrimSettingType : std::uint8_t { Bool = 0, Integer = 1 };

struct BrimSetting {
  const char* key;
  BrimSettingType type;
  // Points to a bool or an NSInteger, depending on `type`. The pointer is valid until the process ends.
  const void* variable;
};

// A function that returns a list writes the number of entries to `count`, which must not be null. The library owns the
// entries. They are valid until the process ends and do not change after the library is loaded.
extern "C" {
// The version of the library, such as "1.0.0". Any thread.
const char* brim_version();
// The installed methods, in installation order. A property has two entries, first its getter and then its setter.
const BrimInstalledMethod* brim_installed_methods(std::size_t* count);
// The settings, in registration order.
const BrimSetting* brim_settings(std::size_t* count);
}
