// Formats times and dates as text in the phone's locale. The texts are autoreleased. Main thread.
#pragma once

#include "platform/ns_date.hpp"

namespace springboard {

// Returns the locale's date format for the fields of a template such as "EEEEMMMMd".
NSString* localizedFormat(NSString* fields);

NSString* formatDate(NSDate* date, NSString* format);

// Returns the age of a date, such as "now", "5m ago" or "2h ago". After a day, returns the date itself. Returns "now"
// for a future date and for nil.
NSString* timeSince(NSDate* date);

}  // namespace springboard
