// Makes -[NSBundle localizedStringForKey:value:table:] use the language of the simulated phone.
#pragma once

namespace foundation {

// Replaces the method. The new method reads the table of the bundle's best localization for the language. If there is
// none, it reads the English table. For an unknown key it returns the value, or the key if the value is nil or empty.
// Main thread.
void installLocalizedStrings();

// Clears the cache of tables. Call this when the language changes.
void clearLocalizedStringTables();

}  // namespace foundation
