// -[NSBundle localizedStringForKey:value:table:] in the language of the simulated phone.
#pragma once

namespace foundation {

// Replaces the method. It reads the table of the best localization that the bundle has for the language, or else the
// English table. For an unknown key it returns the value, or the key if the value is nil or empty. Main thread.
void installLocalizedStrings();

// Clears the cache of tables. Call it when the language changes.
void clearLocalizedStringTables();

}  // namespace foundation
