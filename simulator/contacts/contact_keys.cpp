// The keys of a contact's properties. platform/contacts.hpp declares them as constants, because they are constants on
// the phone. Here they are variables that are set when the classes are registered, so this file does not include that
// header.
#include "platform/ns_string.hpp"
#include "simulator/contacts/classes.hpp"

extern "C" {
NSString* CNContactEmailAddressesKey = nullptr;
NSString* CNContactPhoneNumbersKey = nullptr;
NSString* CNContactGivenNameKey = nullptr;
NSString* CNContactImageDataKey = nullptr;
}

namespace contacts {

void initializeContactKeys() {
  CNContactEmailAddressesKey = "emailAddresses"_ns;
  CNContactPhoneNumbersKey = "phoneNumbers"_ns;
  CNContactGivenNameKey = "givenName"_ns;
  CNContactImageDataKey = "imageData"_ns;
}

}  // namespace contacts
