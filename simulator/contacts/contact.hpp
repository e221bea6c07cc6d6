// Creates CNContact objects for people of the address book.
#pragma once

#include <memory>

#include "platform/contacts.hpp"
#include "simulator/contacts/address_book.hpp"

namespace contacts {

// Creates a contact that represents the person and retains it. `keys` contains the names of the requested properties;
// reading any other property raises CNContactPropertyNotFetchedExceptionName.
objc::Ref<CNContact> makeContact(std::shared_ptr<const Person> person, NSArray* keys);

}  // namespace contacts
