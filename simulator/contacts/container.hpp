// The only container of the address book.
#pragma once

#include "platform/contacts.hpp"

namespace contacts {

// Returns the identifier of the container, which is a string constant.
NSString* containerIdentifier();

// Returns the containers that match the predicate; nil matches all containers. Autoreleased.
NSArray* containersMatching(NSPredicate* predicate);

}  // namespace contacts
