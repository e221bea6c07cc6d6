#include "simulator/contacts/contact.hpp"

#include "objc/property_entry.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/contacts/classes.hpp"
#include "simulator/contacts/identifier_predicate.hpp"

namespace {

struct ContactState {
  std::shared_ptr<const contacts::Person> person;
  objc::Ref<NSArray> keys;
};

struct LabeledValueState {
  objc::Ref<NSString> label;
  objc::Ref<NSString> value;
};

}  // namespace

template <>
struct objc::StateOf<CNContact> {
  using Type = ContactState;
};
template <>
struct objc::StateOf<CNLabeledValue> {
  using Type = LabeledValueState;
};

namespace contacts {

namespace {

// Returns the person. Raises an exception, as on the phone, if the property `key` was not requested for the contact.
const Person& personWith(const CNContact* contact, NSString* key) {
  const ContactState& state = objc::state(contact);
  if (!objc::send<bool, "containsObject:">(state.keys.get(), key))
    objc::send<void, "raise:format:">(objc::lookUpClass<"NSException">(), "CNContactPropertyNotFetchedExceptionName"_ns,
                                      "A property was not requested when the contact was fetched."_ns);
  return *state.person;
}

NSArray* labeledValues(const std::vector<LabeledText>& entries) {
  auto* const values = NSMutableArray::array();
  for (const LabeledText& entry : entries) {
    const auto value = objc::make<CNLabeledValue>();
    objc::state(value.get()) = {entry.label.empty() ? nullptr : objc::retain(base::stringOf(entry.label)),
                                objc::retain(base::stringOf(entry.text))};
    values->addObject(value);
  }
  return values;
}

NSString* identifier(CNContact* self) { return base::stringOf(objc::state(self).person->identifier); }
NSString* givenName(CNContact* self) { return base::stringOf(personWith(self, CNContactGivenNameKey).givenName); }
NSArray* emailAddresses(CNContact* self) {
  return labeledValues(personWith(self, CNContactEmailAddressesKey).emailAddresses);
}
NSArray* phoneNumbers(CNContact* self) {
  return labeledValues(personWith(self, CNContactPhoneNumbersKey).phoneNumbers);
}
NSData* imageData(CNContact* self) {
  const std::optional<std::string>& image = personWith(self, CNContactImageDataKey).image;
  return image ? NSData::dataWithBytes(image->data(), image->size()) : nullptr;
}

NSPredicate* predicateForIdentifiers(Class, NSArray* identifiers) { return identifierPredicate(identifiers); }

}  // namespace

objc::Ref<CNContact> makeContact(std::shared_ptr<const Person> person, NSArray* keys) {
  auto contact = objc::make<CNContact>();
  objc::state(contact.get()) = {std::move(person), objc::retain(keys)};
  return contact;
}

void defineContact() {
  static constexpr objc::PropertyEntry labeledValue[] = {
      objc::readOnly<"label", CNLabeledValue, &LabeledValueState::label>(),
      objc::readOnly<"value", CNLabeledValue, &LabeledValueState::value>(),
  };
  static constexpr objc::MethodEntry contact[] = {
      objc::method<"identifier", &identifier>(),
      objc::method<"givenName", &givenName>(),
      objc::method<"emailAddresses", &emailAddresses>(),
      objc::method<"phoneNumbers", &phoneNumbers>(),
      objc::method<"imageData", &imageData>(),
      objc::classMethod<"predicateForContactsWithIdentifiers:", &predicateForIdentifiers>(),
  };
  objc::defineClassWithState<CNLabeledValue>({});
  objc::addProperties(CNLabeledValue::classObject(), labeledValue);
  objc::defineClassWithState<CNContact>(contact);
}

}  // namespace contacts
