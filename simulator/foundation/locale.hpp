// The language, region and time zone of the simulated phone. They are independent of the machine's settings.
#pragma once

#include <string>
#include <vector>

namespace foundation {

// Returns whether the text has the form of a locale identifier: a language, and optionally a script and a region.
bool isLocaleIdentifier(const std::string& text);

// Selects a locale such as "de_DE", "zh_Hant_TW" or "pt-BR". An empty identifier selects the default, "en_US".
// Localized strings, dates and +[NSLocale currentLocale] follow the locale. Call this at start, after useRoot and
// before the first localized string is read. Main thread.
void useLocale(const std::string& identifier);

// Returns the identifier of the current locale. Its parts are separated by underscores.
const std::string& localeIdentifier();

// Returns the names of the localizations to look for, with the best match first. For "zh_TW" these are "zh-Hant-TW",
// "zh-Hant", "zh-TW" and "zh".
std::vector<std::string> localizationsOf(const std::string& identifier);

// Replaces NSLocale's current locale and preferred languages with those of the phone. Sets the default time zone to the
// value of the environment variable TZ, or to UTC if TZ is unset or unknown. Main thread.
void installLocale();

}  // namespace foundation
