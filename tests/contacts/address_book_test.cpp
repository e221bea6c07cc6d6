// Tests of the address book as the platform's classes return it, read from vCard files of all versions.
#include <sys/stat.h>

#include <fstream>
#include <string>
#include <vector>

#include "objc/autorelease_pool.hpp"
#include "platform/contacts.hpp"
#include "platform/ns_error.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/contacts/address_book.hpp"
#include "simulator/contacts/classes.hpp"
#include "tests/objc/runtime_environment.hpp"

namespace {

namespace fs = std::filesystem;
using base::textOf;

struct Entry {
  std::string identifier;
  std::string givenName;
  std::vector<std::string> emailAddresses;
  std::optional<std::string> image;
};

NSArray* allKeys() {
  auto* const keys = NSMutableArray::array();
  for (const NSString* key :
       {CNContactEmailAddressesKey, CNContactPhoneNumbersKey, CNContactGivenNameKey, CNContactImageDataKey})
    keys->addObject(key);
  return keys;
}

std::vector<std::string> valuesOf(const NSArray* labelled) {
  std::vector<std::string> values;
  for (NSUInteger index = 0; index < labelled->count(); ++index)
    values.push_back(
        textOf(objc::as<NSString>(static_cast<const CNLabeledValue*>(labelled->objectAtIndex(index))->value())));
  return values;
}

Entry entryOf(const CNContact* contact) {
  Entry entry = {textOf(contact->identifier()), textOf(contact->givenName()), valuesOf(contact->emailAddresses()), {}};
  if (const NSData* image = contact->imageData())
    entry.image = std::string(static_cast<const char*>(image->bytes()), image->length());
  return entry;
}

class AddressBook : public RuntimeTest {
 protected:
  static void SetUpTestSuite() { contacts::registerClasses(); }

  static fs::path defaultFile() { return testRoot() / "var/mobile/Library/AddressBook/Contacts.vcf"; }

  static void write(const fs::path& file, const std::string& text) {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
  }

  static std::vector<Entry> entries() {
    std::vector<Entry> all;
    const auto store = objc::make<CNContactStore>();
    EXPECT_TRUE(
        store->enumerateContacts(CNContactFetchRequest::withKeysToFetch(allKeys()),
                                 objc::block([&all](CNContact* contact, bool*) { all.push_back(entryOf(contact)); })));
    return all;
  }

  // Writes an address book that contains one card with these lines, and returns its entry.
  static Entry entry(const std::string& lines) {
    write(defaultFile(), "BEGIN:VCARD\r\n" + lines + "END:VCARD\r\n");
    const std::vector<Entry> all = entries();
    EXPECT_EQ(all.size(), 1u);
    return all.empty() ? Entry() : all.front();
  }
};

TEST_F(AddressBook, IsEmptyInANewRoot) { EXPECT_TRUE(entries().empty()); }

TEST_F(AddressBook, ReadsVersionThree) {
  const Entry anna = entry(
      "VERSION:3.0\r\nUID:anna-1\r\nN:Weber;Anna;;;\r\nFN:Anna Weber\r\nEMAIL;TYPE=HOME:anna@example.org\r\n"
      "item1.EMAIL;TYPE=WORK:weber@example.com\r\nTEL;TYPE=CELL:+49 151 1\r\nPHOTO;ENCODING=b;TYPE=JPEG:cGlj\r\n "
      "dHVyZQ==\r\n");
  EXPECT_EQ(anna.identifier, "anna-1");
  EXPECT_EQ(anna.givenName, "Anna");
  EXPECT_EQ(anna.emailAddresses, (std::vector<std::string>{"anna@example.org", "weber@example.com"}));
  EXPECT_EQ(anna.image, "picture");
}

TEST_F(AddressBook, ReadsVersionTwo) {
  const Entry joerg = entry(
      "VERSION:2.1\r\nUID:2\r\nN;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:M=C3=BCller;J=C3=\r\n=B6rg\r\n"
      "EMAIL;INTERNET;HOME:joerg@example.org\r\nPHOTO;JPEG;ENCODING=BASE64:\r\n cGljdHVy\r\n "
      "ZQ==\r\n\r\nTEL;CELL:1\r\n");
  EXPECT_EQ(joerg.givenName, "J\xc3\xb6rg");
  EXPECT_EQ(joerg.emailAddresses, std::vector<std::string>{"joerg@example.org"});
  EXPECT_EQ(joerg.image, "picture");
}

TEST_F(AddressBook, ReadsOtherCharacterSets) {
  EXPECT_EQ(entry("VERSION:2.1\r\nN;CHARSET=ISO-8859-1;QUOTED-PRINTABLE:M=FCller;J=F6rg\r\n").givenName, "J\xc3\xb6rg");
  // Without a declared character set, the text is UTF-8. Invalid bytes become replacement characters.
  EXPECT_EQ(entry("VERSION:3.0\r\nN:x;J\xf6rg\r\n").givenName, "J\xef\xbf\xbdrg");
}

TEST_F(AddressBook, ReadsVersionFour) {
  const Entry person = entry(
      "VERSION:4.0\r\nUID:urn:uuid:4fbe8971-0bc3-424c-9c26-36c3e1eff6b1\r\nFN:Mika\r\nEMAIL:mika@example.org\r\n"
      "PHOTO:data:image/jpeg;base64,cGljdHVyZQ==\r\n");
  EXPECT_EQ(person.identifier, "urn:uuid:4fbe8971-0bc3-424c-9c26-36c3e1eff6b1");
  EXPECT_EQ(person.givenName, "Mika");
  EXPECT_EQ(person.image, "picture");
}

TEST_F(AddressBook, ReadsEscapedText) {
  EXPECT_EQ(entry("VERSION:3.0\r\nN:a;Anna\\, Lena\\;\r\n").givenName, "Anna, Lena;");
}

TEST_F(AddressBook, LabelsPhoneNumbersByType) {
  write(defaultFile(),
        "BEGIN:VCARD\nVERSION:3.0\nTEL;TYPE=HOME:1\nTEL;TYPE=WORK,VOICE:2\nTEL;TYPE=CELL:3\nTEL:4\nEND:VCARD\n");
  std::vector<std::string> labels;
  objc::make<CNContactStore>()->enumerateContacts(
      CNContactFetchRequest::withKeysToFetch(allKeys()), objc::block([&labels](CNContact* contact, bool*) {
        const auto* const numbers = objc::send<NSArray*, "phoneNumbers">(contact);
        for (NSUInteger index = 0; index < numbers->count(); ++index)
          labels.push_back(textOf(objc::send<NSString*, "label">(numbers->objectAtIndex(index))));
      }));
  EXPECT_EQ(labels, (std::vector<std::string>{"_$!<Home>!$_", "_$!<Work>!$_", "_$!<Mobile>!$_", ""}));
}

TEST_F(AddressBook, DerivesAStableIdentifierForCardsWithoutOne) {
  const std::string first = entry("VERSION:3.0\r\nN:a;Anna\r\n").identifier;
  const std::string other = entry("VERSION:3.0\r\nN:a;Bella\r\n").identifier;
  EXPECT_EQ(entry("VERSION:3.0\r\nN:a;Anna\r\n").identifier, first);
  EXPECT_NE(other, first);
  EXPECT_EQ(first.size(), 36u);
}

TEST_F(AddressBook, GivesCardsWithoutNameAnEmptyName) {
  EXPECT_EQ(entry("VERSION:3.0\r\nORG:Office\r\n").givenName, "");
}

TEST_F(AddressBook, IgnoresPicturesGivenAsAddresses) {
  EXPECT_EQ(entry("VERSION:3.0\r\nPHOTO;VALUE=uri:https://example.org/a.jpg\r\n").image, std::nullopt);
  EXPECT_EQ(entry("VERSION:4.0\r\nPHOTO:https://example.org/a.jpg\r\n").image, std::nullopt);
}

TEST_F(AddressBook, ReadsCardsWithInvalidPictures) {
  for (const char* photo : {"PHOTO;ENCODING=b:%%%%", "PHOTO;ENCODING=b:", "PHOTO:", "PHOTO;ENCODING=unheard-of:x",
                            "PHOTO:data:image/png;base64", "PHOTO:data:;base64,\x01\x02"}) {
    const Entry anna = entry(std::string("VERSION:3.0\r\nN:a;Anna\r\n") + photo + "\r\nEMAIL:a@example.org\r\n");
    EXPECT_EQ(anna.givenName, "Anna") << photo;
    EXPECT_EQ(anna.emailAddresses.size(), 1u) << photo;
  }
}

TEST_F(AddressBook, ReadsTheCardsAfterInvalidOnes) {
  using namespace std::string_literals;
  write(defaultFile(),
        "BEGIN:VCARD\nN;;=;:;;;\n:::\n;\nEMAIL\nTEL;TYPE:\n\0\nEND:VCARD\nBEGIN:VCARD\nEND:VCARD\n"
        "BEGIN:VCARD\nNOTE:\0\0\nN:a;Anna\nEND:VCARD\n"s);
  EXPECT_EQ(entries().back().givenName, "Anna");
}

// Every allocation takes longer with the address sanitizer, so the test then reads fewer cards.
#if defined(__has_feature)
#define HAS_ADDRESS_SANITIZER __has_feature(address_sanitizer)
#else
#define HAS_ADDRESS_SANITIZER 0
#endif
constexpr int cardCount = HAS_ADDRESS_SANITIZER ? 1000 : 50'000;

TEST_F(AddressBook, ReadsManyCards) {
  constexpr int invalidCard = 500;
  std::string cards;
  for (int index = 0; index < cardCount; ++index) {
    const std::string number = std::to_string(index);
    cards.append("BEGIN:VCARD\nVERSION:3.0\nUID:").append(number).append("\nN:Family;Given").append(number);
    cards.append("\nEMAIL:").append(number).append("@example.org\nTEL:").append(number);
    cards.append(index == invalidCard ? "\nPHOTO;ENCODING=b:%%%" : "").append("\nEND:VCARD\n");
  }
  write(defaultFile(), cards);
  const std::vector<Entry> all = entries();
  ASSERT_EQ(all.size(), static_cast<std::size_t>(cardCount));
  EXPECT_EQ(all[invalidCard].givenName, "Given500");
  EXPECT_EQ(all.back().givenName, "Given" + std::to_string(cardCount - 1));
}

TEST_F(AddressBook, IsReloadedWhenItsFileChanges) {
  EXPECT_EQ(entry("N:a;Anna\r\n").givenName, "Anna");
  EXPECT_EQ(entry("N:b;Bella\r\n").givenName, "Bella");
  fs::remove(defaultFile());
  EXPECT_TRUE(entries().empty());
}

TEST_F(AddressBook, StopsEnumeratingOnRequest) {
  write(defaultFile(), "BEGIN:VCARD\nN:a;1\nEND:VCARD\nBEGIN:VCARD\nN:a;2\nEND:VCARD\nBEGIN:VCARD\nN:a;3\nEND:VCARD\n");
  int visited = 0;
  EXPECT_TRUE(objc::make<CNContactStore>()->enumerateContacts(
      CNContactFetchRequest::withKeysToFetch(allKeys()),
      objc::block([&visited](CNContact*, bool* stop) { *stop = ++visited == 2; })));
  EXPECT_EQ(visited, 2);
}

TEST_F(AddressBook, RaisesForPropertiesThatWereNotFetched) {
  write(defaultFile(), "BEGIN:VCARD\nUID:1\nN:a;Anna\nEND:VCARD\n");
  auto* const keys = NSMutableArray::array();
  keys->addObject(CNContactGivenNameKey);
  objc::Ref<CNContact> contact;
  objc::make<CNContactStore>()->enumerateContacts(
      CNContactFetchRequest::withKeysToFetch(keys),
      objc::block([&contact](CNContact* found, bool*) { contact = objc::retain(found); }));
  EXPECT_EQ(textOf(contact->identifier()), "1");
  EXPECT_EQ(textOf(contact->givenName()), "Anna");
  EXPECT_ANY_THROW(contact->imageData());
  EXPECT_ANY_THROW(contact->emailAddresses());
}

TEST_F(AddressBook, ReturnsAnErrorIfItsFileCannotBeRead) {
  fs::create_directories(defaultFile());
  id error = nullptr;
  int visited = 0;
  EXPECT_FALSE((objc::send<bool, "enumerateContactsWithFetchRequest:error:usingBlock:">(
      objc::make<CNContactStore>().get(), CNContactFetchRequest::withKeysToFetch(allKeys()).get(), &error,
      objc::block([&visited](CNContact*, bool*) { ++visited; }).get())));
  EXPECT_EQ(visited, 0);
  EXPECT_EQ(textOf(objc::send<NSString*, "domain">(error)), "CNErrorDomain");
}

TEST_F(AddressBook, FindsContactsByIdentifier) {
  write(defaultFile(),
        "BEGIN:VCARD\nUID:1\nN:a;Anna\nEND:VCARD\nBEGIN:VCARD\nUID:2\nN:b;Bella\nEND:VCARD\n"
        "BEGIN:VCARD\nUID:1\nN:c;Carla\nEND:VCARD\n");
  const auto store = objc::make<CNContactStore>();
  auto* const identifiers = NSMutableArray::array();
  identifiers->addObject("1"_ns);
  auto* const keys = NSMutableArray::array();
  keys->addObject(CNContactGivenNameKey);
  NSArray* const found = store->contactsMatching(CNContact::predicateForIdentifiers(identifiers), keys);
  ASSERT_EQ(found->count(), 2u);
  const auto* const last = static_cast<CNContact*>(found->objectAtIndex(1));
  EXPECT_EQ(textOf(last->givenName()), "Carla");
  EXPECT_ANY_THROW(last->imageData());
}

TEST_F(AddressBook, FindsNothingIfItsFileCannotBeRead) {
  fs::create_directories(defaultFile());
  auto* const none = NSMutableArray::array();
  EXPECT_EQ(objc::make<CNContactStore>()->contactsMatching(CNContact::predicateForIdentifiers(none), none), nullptr);
}

TEST_F(AddressBook, HasOneContainer) {
  const auto store = objc::make<CNContactStore>();
  const auto count = [&store](NSString* identifier) {
    auto* const identifiers = NSMutableArray::array();
    if (identifier != nullptr) identifiers->addObject(identifier);
    return store->containersMatching(CNContainer::predicateForIdentifiers(identifiers))->count();
  };
  EXPECT_EQ(count(store->defaultContainerIdentifier()), 1u);
  EXPECT_EQ(count("another"_ns), 0u);
  EXPECT_EQ(count(nullptr), 0u);
}

TEST_F(AddressBook, CanUseAnotherFile) {
  EXPECT_EQ(entry("N:a;Anna\r\n").givenName, "Anna");
  write(testRoot() / "other.vcf", "BEGIN:VCARD\nN:b;Bella\nEND:VCARD\n");
  EXPECT_EQ(contacts::useAddressBook(testRoot() / "other.vcf"), std::nullopt);
  EXPECT_EQ(entries().front().givenName, "Bella");
}

TEST_F(AddressBook, DoesNotChangeIfTheOtherFileIsInvalid) {
  EXPECT_EQ(entry("N:a;Anna\r\n").givenName, "Anna");
  write(testRoot() / "text", "no card");
  ASSERT_EQ(mkfifo((testRoot() / "pipe").c_str(), 0600), 0);
  for (const char* name : {"missing", "text", "pipe", "."}) {
    const auto error = contacts::useAddressBook(testRoot() / name);
    ASSERT_TRUE(error) << name;
    EXPECT_NE(error->find(name), std::string::npos) << *error;
    EXPECT_EQ(entries().front().givenName, "Anna") << name;
  }
}

}  // namespace
