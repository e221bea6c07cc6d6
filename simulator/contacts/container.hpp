// The address book's one container.
#pragma once

#include "platform/contacts.hpp"

namespace contacts {

NSString* containerIdentifier();

// Those that the predicate holds for; all for nil. Autoreleased.
NSArray* containersMatching(NSPredicate* predicate);

}  // namespace contacts
