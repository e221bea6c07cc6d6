// Times and dates as text in the phone's locale. Autoreleased. Main thread.
#pragma once

#include "platform/ns_date.hpp"

namespace springboard {

// The locale's date format with the fields of a template such as "EEEEMMMMd".
NSString* localizedFormat(NSString* fields);

NSString* formatDate(NSDate* date, NSString* format);

// The age of a date: "now", "5m ago" or "2h ago", and the date itself after a day. A future date and nil are "now".
NSString* timeSince(NSDate* date);

}  // namespace springboard
