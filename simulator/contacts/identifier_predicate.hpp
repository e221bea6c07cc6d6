// A predicate that matches contacts and containers by their identifiers. Main thread.
#pragma once

#include "platform/contacts.hpp"

namespace contacts {

// Returns a predicate that retains the array of identifiers. Autoreleased.
NSPredicate* identifierPredicate(NSArray* identifiers);

// Returns whether the object has one of the identifiers. Every object matches nil.
bool matches(NSPredicate* predicate, const NSObject* object);

}  // namespace contacts
