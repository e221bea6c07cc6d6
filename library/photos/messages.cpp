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

NSArray* fetchedProperties() {
  NSMutableArray* keys = NSMutableArray::array();
  for (NSString* key :
       {CNContactEmailAddressesKey, CNContactPhoneNumbersKey, CNContactGivenNameKey, CNContactImageDataKey})
    keys->addObject(key);
  return keys;
}

// Fetches the default container. The result is not used, because the search covers all containers.
void fetchDefaultContainer(CNContactStore* store) {
  NSString* identifier = store->defaultContainerIdentifier();
  if (identifier == nullptr) return;
  NSMutableArray* identifiers = NSMutableArray::array();
  identifiers->addObject(identifier);
  store->containersMatching(CNContainer::predicateForIdentifiers(identifiers));
}

// Returns the picture of the first contact that matches the sender and has a picture. Returns nil if there is no such
// contact.
objc::Ref<NSData> pictureDataOf(const Sender& sender) {
  const auto store = objc::make<CNContactStore>();
  fetchDefaultContainer(store);
  objc::Ref<NSData> found;
  objc::Ref<NSData>* const result = &found;
  const auto visit = [&sender, result](CNContact* contact, bool* stop) {
    if (!matches(contact, sender)) return;
    *result = objc::retain(contact->imageData());
    *stop = *result != nullptr;
  };
  store->enumerateContacts(CNContactFetchRequest::withKeysToFetch(fetchedProperties()), objc::block(visit));
  return found;
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
