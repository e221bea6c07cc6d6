// The photo of a Messages sender is stored in the address book.
#include <initializer_list>

#include "library/photos/provider.hpp"
#include "library/photos/user_info.hpp"
#include "platform/contacts.hpp"

namespace {

struct Sender {
  // A contact's identifier in the address book. If it is not nil, displayText is ignored.
  NSString* identifier = nullptr;
  // A given name or an email address.
  NSString* displayText = nullptr;
};

Sender senderOf(NSDictionary* values) {
  NSObject* key = values->objectForKey("CKBBContextKeySenderPersonCentricID"_ns);
  if (key == nullptr) key = values->objectForKey("CKBBContextKeySenderName"_ns);
  if (key != nullptr) return {objc::as<NSString>(key), nullptr};
  NSDictionary* sender = dictionaryAt(dictionaryAt(values, "AssistantContext"_ns), "msgSender"_ns);
  return {nullptr, textAt(sender, "displayText"_ns)};
}

bool areEqual(NSObject* value, NSString* wanted) {
  const auto* const text = objc::as<NSString>(value);
  return text != nullptr && text->isEqualToString(wanted);
}

bool hasAddress(CNContact* contact, NSString* wanted) {
  NSArray* addresses = contact->emailAddresses();
  for (NSUInteger index = 0; index < addresses->count(); ++index)
    if (areEqual(static_cast<CNLabeledValue*>(addresses->objectAtIndex(index))->value(), wanted)) return true;
  return false;
}

bool matches(CNContact* contact, const Sender& sender) {
  if (sender.identifier != nullptr) return areEqual(contact->identifier(), sender.identifier);
  return areEqual(contact->givenName(), sender.displayText) || hasAddress(contact, sender.displayText);
}

NSArray* arrayOf(std::initializer_list<NSString*> texts) {
  NSMutableArray* array = NSMutableArray::array();
  for (NSString* text : texts) array->addObject(text);
  return array;
}

// Fetches the default container and ignores the result, because the search covers all containers.
void fetchDefaultContainer(CNContactStore* store) {
  NSString* identifier = store->defaultContainerIdentifier();
  if (identifier == nullptr) return;
  store->containersMatching(CNContainer::predicateForIdentifiers(arrayOf({identifier})));
}

// Returns the identifiers of the contacts that match the sender, in the order of the address book.
objc::Ref<NSMutableArray> matchingContacts(CNContactStore* store, const Sender& sender) {
  objc::Ref<NSMutableArray> identifiers = objc::retain(NSMutableArray::array());
  const auto visit = [&sender, identifiers](CNContact* contact, bool*) {
    if (matches(contact, sender) && contact->identifier() != nullptr) identifiers->addObject(contact->identifier());
  };
  NSArray* keys = arrayOf({CNContactEmailAddressesKey, CNContactPhoneNumbersKey, CNContactGivenNameKey});
  store->enumerateContacts(CNContactFetchRequest::withKeysToFetch(keys), objc::block(visit));
  return identifiers;
}

// Returns the first picture of the contacts with the identifier.
NSData* pictureOf(CNContactStore* store, NSString* identifier) {
  NSPredicate* predicate = CNContact::predicateForIdentifiers(arrayOf({identifier}));
  NSArray* contacts = store->contactsMatching(predicate, arrayOf({CNContactImageDataKey}));
  for (NSUInteger index = 0; index < contacts->count(); ++index)
    if (NSData* picture = static_cast<CNContact*>(contacts->objectAtIndex(index))->imageData()) return picture;
  return nullptr;
}

// Returns the picture of the first contact that matches the sender and has a picture. Returns nil if there is no such
// contact. Only the pictures of matching contacts are fetched, because the search blocks the main thread.
objc::Ref<NSData> pictureDataOf(const Sender& sender) {
  const auto store = objc::make<CNContactStore>();
  fetchDefaultContainer(store);
  const objc::Ref<NSMutableArray> identifiers = matchingContacts(store, sender);
  for (NSUInteger index = 0; index < identifiers->count(); ++index)
    if (NSData* picture = pictureOf(store, static_cast<NSString*>(identifiers->objectAtIndex(index))))
      return objc::retain(picture);
  return nullptr;
}

void contactPhoto(BrimMessagesContactPhotoProvider*, NCNotificationRequest* request, NSString*, NSString*,
                  PhotoReceiver* view) {
  const Sender sender = senderOf(userInfoOf(request));
  if (sender.identifier == nullptr && sender.displayText == nullptr) return;
  const objc::Ref<NSData> data = pictureDataOf(sender);
  if (data == nullptr) return;
  const objc::Ref<UIImage> picture = UIImage::withData(data);
  if (picture != nullptr) updateImageLater(objc::Weak<PhotoReceiver>(view), picture);
}

}  // namespace

bool registerMessagesProvider() { return defineProvider<BrimMessagesContactPhotoProvider, &contactPhoto>(); }
