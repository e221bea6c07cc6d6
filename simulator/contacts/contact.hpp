// Contacts made of people, with the properties that somebody asked for.
#pragma once

#include <memory>

#include "platform/contacts.hpp"
#include "simulator/contacts/address_book.hpp"

namespace contacts {

// One of the people, who stay as long as the contact. `keys` are names of properties.
objc::Ref<CNContact> makeContact(std::shared_ptr<const Person> person, NSArray* keys);

}  // namespace contacts
