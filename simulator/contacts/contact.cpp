#include "simulator/contacts/contact.hpp"

#include "objc/property_entry.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/contacts/classes.hpp"

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

using base::stringOf;

// What was not asked for is not known to have no value.
const Person& fetched(const CNContact* contact, NSString* key) {
  const ContactState& state = objc::state(contact);
  if (!objc::send<bool, "containsObject:">(state.keys.get(), key))
    objc::send<void, "raise:format:">(objc::lookUpClass<"NSException">(), "CNContactPropertyNotFetchedExceptionName"_ns,
                                      "A property was not requested when the contact was fetched."_ns);
  return *state.person;
}

NSArray* labelledValues(const std::vector<LabelledText>& entries) {
  auto* const values = NSMutableArray::array();
  for (const LabelledText& entry : entries) {
    const auto value = objc::make<CNLabeledValue>();
    objc::state(value.get()) = {entry.label.empty() ? nullptr : objc::retain(base::stringOf(entry.label)),
                                objc::retain(base::stringOf(entry.text))};
    values->addObject(value);
  }
  return values;
}

NSString* identifier(CNContact* self) { return base::stringOf(objc::state(self).person->identifier); }
NSString* givenName(CNContact* self) { return base::stringOf(fetched(self, CNContactGivenNameKey).givenName); }
NSArray* emailAddresses(CNContact* self) {
  return labelledValues(fetched(self, CNContactEmailAddressesKey).emailAddresses);
}
NSArray* phoneNumbers(CNContact* self) { return labelledValues(fetched(self, CNContactPhoneNumbersKey).phoneNumbers); }
NSData* imageData(CNContact* self) {
  const std::optional<std::string>& image = fetched(self, CNContactImageDataKey).image;
  return image ? NSData::dataWithBytes(image->data(), image->size()) : nullptr;
}

}  // namespace

objc::Ref<CNContact> makeContact(std::shared_ptr<const Person> person, NSArray* keys) {
  auto contact = objc::make<CNContact>();
  objc::state(contact.get()) = {std::move(person), objc::retain(keys)};
  return contact;
}

void defineContact() {
  static constexpr objc::PropertyEntry labelledValue[] = {
      objc::readOnly<"label", CNLabeledValue, &LabeledValueState::label>(),
      objc::readOnly<"value", CNLabeledValue, &LabeledValueState::value>(),
  };
  static constexpr objc::MethodEntry contact[] = {
      objc::method<"identifier", &identifier>(),         objc::method<"givenName", &givenName>(),
      objc::method<"emailAddresses", &emailAddresses>(), objc::method<"phoneNumbers", &phoneNumbers>(),
      objc::method<"imageData", &imageData>(),
  };
  objc::defineClassWithState<CNLabeledValue>({});
  objc::addProperties(CNLabeledValue::classObject(), labelledValue);
  objc::defineClassWithState<CNContact>(contact);
}

}  // namespace contacts
