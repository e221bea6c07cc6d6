// The address book: its store, its containers and its contacts.
#pragma once

#include "objc/block.hpp"
#include "platform/ns_array.hpp"
#include "platform/ns_data.hpp"
#include "platform/ns_string.hpp"

// The names of a contact's properties, by which a request says what it wants.
extern "C" {
extern NSString* const CNContactEmailAddressesKey;
extern NSString* const CNContactPhoneNumbersKey;
extern NSString* const CNContactGivenNameKey;
extern NSString* const CNContactImageDataKey;
}

class NSPredicate : public objc::Interface<"NSPredicate", NSObject> {};

// A value of which a contact may have several, such as an address at home and one at work.
class CNLabeledValue : public objc::Interface<"CNLabeledValue", NSObject> {
 public:
  // A string where it is an e-mail address.
  NSObject* value() const { return objc::send<NSObject*, "value">(this); }
};

// Reading a property that was not fetched raises an exception; `identifier` is always there.
class CNContact : public objc::Interface<"CNContact", NSObject> {
 public:
  NSString* identifier() const { return objc::send<NSString*, "identifier">(this); }
  NSString* givenName() const { return objc::send<NSString*, "givenName">(this); }
  // Of CNLabeledValue, in the contact's order.
  NSArray* emailAddresses() const { return objc::send<NSArray*, "emailAddresses">(this); }
  // The bytes of a picture file; nil without a picture.
  NSData* imageData() const { return objc::send<NSData*, "imageData">(this); }
};

class CNContainer : public objc::Interface<"CNContainer", NSObject> {
 public:
  static NSPredicate* predicateForIdentifiers(NSArray* identifiers) {
    return objc::send<NSPredicate*, "predicateForContainersWithIdentifiers:">(classObject(), identifiers);
  }
};

class CNContactFetchRequest : public objc::Interface<"CNContactFetchRequest", NSObject> {
 public:
  static objc::Ref<CNContactFetchRequest> withKeysToFetch(NSArray* keys) {
    return objc::adopt(
        objc::send<CNContactFetchRequest*, "initWithKeysToFetch:">(objc::allocate<CNContactFetchRequest>(), keys));
  }
};

class CNContactStore : public objc::Interface<"CNContactStore", NSObject> {
 public:
  // Sets `stop` to end the enumeration after this contact.
  using Visitor = void(CNContact* contact, bool* stop);

  // nil where the address book cannot be read.
  NSString* defaultContainerIdentifier() const { return objc::send<NSString*, "defaultContainerIdentifier">(this); }
  NSArray* containersMatching(NSPredicate* predicate) const {
    return objc::send<NSArray*, "containersMatchingPredicate:error:">(this, predicate, error());
  }
  // Calls the visitor for every contact before it returns. False where the address book cannot be read.
  bool enumerateContacts(CNContactFetchRequest* request, objc::Block<Visitor>* visitor) const {
    return objc::send<bool, "enumerateContactsWithFetchRequest:error:usingBlock:">(this, request, error(), visitor);
  }

 private:
  static id* error() { return nullptr; }
};
