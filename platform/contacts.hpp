// The address book: its store, its containers and its contacts. Any thread. The functions in this header pass null as
// the error argument of a message; only the return value indicates a failure.
#pragma once

#include "objc/block.hpp"
#include "platform/ns_array.hpp"
#include "platform/ns_data.hpp"
#include "platform/ns_string.hpp"

// The keys of a contact's properties. A fetch request lists the keys of the properties to fetch.
extern "C" {
extern NSString* const CNContactEmailAddressesKey;
extern NSString* const CNContactPhoneNumbersKey;
extern NSString* const CNContactGivenNameKey;
extern NSString* const CNContactImageDataKey;
}

class NSPredicate : public objc::Interface<"NSPredicate", NSObject> {};

// One value of a property that can have several values, such as the email addresses at home and at work.
class CNLabeledValue : public objc::Interface<"CNLabeledValue", NSObject> {
 public:
  // The value of an email address is an NSString.
  NSObject* value() const { return objc::send<NSObject*, "value">(this); }
};

// A contact. Reading a property that was not fetched raises an exception. `identifier` is always available.
class CNContact : public objc::Interface<"CNContact", NSObject> {
 public:
  static NSPredicate* predicateForIdentifiers(NSArray* identifiers) {
    return objc::send<NSPredicate*, "predicateForContactsWithIdentifiers:">(classObject(), identifiers);
  }
  NSString* identifier() const { return objc::send<NSString*, "identifier">(this); }
  NSString* givenName() const { return objc::send<NSString*, "givenName">(this); }
  // The addresses as CNLabeledValue objects, in the order in which the contact lists them.
  NSArray* emailAddresses() const { return objc::send<NSArray*, "emailAddresses">(this); }
  // The bytes of an image file, or nil if the contact has no picture.
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
  // A block that is called for each contact. To end the enumeration after this contact, it sets `*stop` to true.
  using Visitor = void(CNContact* contact, bool* stop);

  // The identifier of the default container; nil if the address book cannot be read.
  NSString* defaultContainerIdentifier() const { return objc::send<NSString*, "defaultContainerIdentifier">(this); }
  // The matching containers, as CNContainer objects; nil if the address book cannot be read.
  NSArray* containersMatching(NSPredicate* predicate) const {
    return objc::send<NSArray*, "containersMatchingPredicate:error:">(this, predicate, error());
  }
  // Returns CNContact objects with the properties that the keys select; nil if the address book cannot be read.
  NSArray* contactsMatching(NSPredicate* predicate, NSArray* keys) const {
    return objc::send<NSArray*, "unifiedContactsMatchingPredicate:keysToFetch:error:">(this, predicate, keys, error());
  }
  // Calls the visitor for each contact and returns after the last call. Returns false if the address book cannot be
  // read.
  bool enumerateContacts(CNContactFetchRequest* request, objc::Block<Visitor>* visitor) const {
    return objc::send<bool, "enumerateContactsWithFetchRequest:error:usingBlock:">(this, request, error(), visitor);
  }

 private:
  static id* error() { return nullptr; }
};
