// The phone's language, region and time zone, which are not the machine's.
#pragma once

#include <string>
#include <vector>

namespace foundation {

// An identifier such as "de_DE", "zh_Hant_TW" or "pt-BR"; English of the United States before the first call. Texts,
// dates and
// +[NSLocale currentLocale] follow it. At start, after useRoot and before anything is read by language. Main thread.
void useLocale(const std::string& identifier);

// The identifier in use, with underscores.
const std::string& localeIdentifier();

// The names of the language's localizations, best first: for "zh_TW" "zh-Hant-TW", "zh-Hant", "zh-TW" and "zh".
std::vector<std::string> localizationsOf(const std::string& identifier);

// Makes NSLocale's current locale and language list those in use, and the time zone that of the environment's TZ, or
// UTC.
void installLocale();

}  // namespace foundation
