// -[NSBundle localizedStringForKey:value:table:] in the language in use.
#pragma once

namespace foundation {

// Replaces the method: the table of the best localization the bundle has for the language, else the English one. A key
// that is not in it gives the value, or the key itself where the value is nil or empty.
void installLocalizedStrings();

// Tables are kept once read; this forgets them, for another language.
void forgetLocalizedStrings();

}  // namespace foundation
