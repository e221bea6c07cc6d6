// The user's settings, as process-wide variables. settings_list.hpp lists them. The preferences object updates a
// variable when the stored value changes. Main thread.
#pragma once

#include "platform/hb_preferences.hpp"

namespace settings {

#define BRIM_SETTING(type, variable, key, defaultValue) extern type variable;
#include "library/settings/settings_list.hpp"

// The preferences object that writes the variables. It lives until the process ends.
extern HBPreferences* pfs;

// The values of messagesAutoReadMode. With any other value the library marks nothing as read.
enum class AutoReadMode : NSInteger { WhenExpanded = 1, AfterReply = 2 };
inline AutoReadMode autoReadMode() { return static_cast<AutoReadMode>(messagesAutoReadMode); }

// Connects every variable to its stored value. Call this function once, before any setting is read.
void registerAll();

}  // namespace settings
