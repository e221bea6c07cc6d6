// The names of a contact's properties. To the library they are constants, as on the phone; here they are made when the
// classes are, so their declarations for the library are not included.
#include "platform/ns_string.hpp"
#include "simulator/contacts/classes.hpp"

extern "C" {
NSString* CNContactEmailAddressesKey = nullptr;
NSString* CNContactPhoneNumbersKey = nullptr;
NSString* CNContactGivenNameKey = nullptr;
NSString* CNContactImageDataKey = nullptr;
}

namespace contacts {

void makeContactKeys() {
  CNContactEmailAddressesKey = "emailAddresses"_ns;
  CNContactPhoneNumbersKey = "phoneNumbers"_ns;
  CNContactGivenNameKey = "givenName"_ns;
  CNContactImageDataKey = "imageData"_ns;
}

}  // namespace contacts
