#include <glib.h>
#include <gtest/gtest.h>

#include "objc/hook.hpp"
#include "platform/contacts.hpp"
#include "simulator/foundation/hook_function.hpp"
#include "simulator/springboard/banner/notification_view_controller.hpp"
#include "tests/library/controllers.hpp"
#include "tests/photos/photo_phone.hpp"

namespace {

namespace fs = std::filesystem;
using test::Color;
using test::Colors;
using test::Json;
using test::PhotoPhone;

constexpr const char* messages = "com.apple.MobileSMS";

std::string base64(const std::string& bytes) {
  gchar* const written = g_base64_encode(reinterpret_cast<const guchar*>(bytes.data()), bytes.size());
  std::string text = written;
  g_free(written);
  return text;
}

struct Card {
  std::string identifier;
  std::string givenName;
  std::vector<std::string> addresses = {};
  std::optional<std::string> picture = {};
};

std::string vCard(const Card& card) {
  std::string text =
      "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:" + card.identifier + "\r\nN:Family;" + card.givenName + ";;;\r\n";
  for (const std::string& address : card.addresses) text += "EMAIL:" + address + "\r\n";
  if (card.picture) text += "PHOTO;ENCODING=b;TYPE=PNG:" + base64(*card.picture) + "\r\n";
  return text + "TEL:+491511\r\nEND:VCARD\r\n";
}

struct MessagesPhone : PhotoPhone {
  explicit MessagesPhone(const std::vector<Card>& cards = {}) {
    std::string book;
    for (const Card& card : cards) book += vCard(card);
    if (!book.empty()) test::writeFile(root() / "var/mobile/Library/AddressBook/Contacts.vcf", book);
  }
  // Presents a banner with this user info and returns the pictures that the banner is given.
  Colors picturesFor(const Json& userInfo) {
    const std::size_t before = pictures.all().size();
    const Colors& all = picturesAfter(messages, userInfo);
    return {all.begin() + static_cast<std::ptrdiff_t>(before), all.end()};
  }
};

Json byIdentifier(const Json& identifier) { return {{"CKBBContextKeySenderPersonCentricID", identifier}}; }
Json byDisplayText(const Json& text) { return {{"AssistantContext", {{"msgSender", {{"displayText", text}}}}}}; }

TEST(MessagesPhoto, IsThePictureOfTheContactWithTheIdentifier) {
  MessagesPhone phone({{"A-1", "Anna", {}, pictureBytes(Color::Red)}, {"B-2", "Ben", {}, pictureBytes(Color::Blue)}});
  EXPECT_EQ(phone.picturesFor(byIdentifier("B-2")), Colors{Color::Blue});
}

TEST(MessagesPhoto, IsShownAfterTheBannerHasAppeared) {
  MessagesPhone phone({{"A-1", "Anna", {}, pictureBytes(Color::Red)}});
  EXPECT_EQ(phone.picturesFor(byIdentifier("A-1")), Colors{Color::Red});
  const auto request = objc::retain(test::controllerOf(1)->notificationRequest());
  phone.phone.wait(20);
  // A script command returns only after the run-loop iteration, so this banner is presented directly.
  springboard::presentBanner(springboard::makeShortLookController(request));
  ASSERT_NE(test::containerOf(2), nullptr);
  EXPECT_EQ(phone.pictures.all(), Colors{Color::Red});
  phone.waitUntilIdle();
  EXPECT_EQ(phone.pictures.all(), (Colors{Color::Red, Color::Red}));
}

TEST(MessagesPhoto, IdentifiersAreComparedExactly) {
  MessagesPhone phone({{"A-1", "Anna", {"a-1"}, pictureBytes(Color::Red)}});
  for (const char* identifier : {"a-1", "A-1 ", "A-", "Anna", ""})
    EXPECT_EQ(phone.picturesFor(byIdentifier(identifier)), Colors{}) << identifier;
}

// The identifiers of the contacts whose pictures the library has read.
std::vector<std::string>& readPictures() {
  static std::vector<std::string> identifiers;
  return identifiers;
}

NSData* recordReadPicture(objc::Original<NSData*(CNContact*)> original, CNContact* self) {
  readPictures().emplace_back(self->identifier()->UTF8String());
  return original(self);
}

TEST(MessagesPhoto, OnlyThePicturesOfMatchingContactsAreRead) {
  MessagesPhone phone({{"A-1", "Anna", {}, pictureBytes(Color::Red)},
                       {"B-2", "Ben"},
                       {"C-3", "Carl", {"Ben"}, pictureBytes(Color::Blue)},
                       {"D-4", "Ben", {}, pictureBytes(Color::Red)}});
  using Hook = objc::detail::HookOf<&recordReadPicture>;
  MSHookMessageEx(CNContact::classObject(), objc::selector<"imageData">(), Hook::implementation(), &Hook::replaced);
  EXPECT_EQ(phone.picturesFor(byDisplayText("Ben")), Colors{Color::Blue});
  EXPECT_EQ(readPictures(), (std::vector<std::string>{"B-2", "C-3"}));
}

TEST(MessagesPhoto, ContactWithoutPictureShowsNone) {
  MessagesPhone phone({{"A-1", "Anna"}, {"B-2", "Ben", {}, pictureBytes(Color::Blue)}});
  EXPECT_EQ(phone.picturesFor(byIdentifier("A-1")), Colors{});
}

TEST(MessagesPhoto, SenderNameIsUsedAsAnIdentifier) {
  MessagesPhone phone({{"A-1", "Anna", {}, pictureBytes(Color::Red)}});
  EXPECT_EQ(phone.picturesFor({{"CKBBContextKeySenderName", "Anna"}}), Colors{});
  EXPECT_EQ(phone.picturesFor({{"CKBBContextKeySenderName", "A-1"}}), Colors{Color::Red});
  Json both = byIdentifier("unknown");
  both["CKBBContextKeySenderName"] = "A-1";
  EXPECT_EQ(phone.picturesFor(both), Colors{});
}

TEST(MessagesPhoto, DisplayTextCanBeAGivenName) {
  MessagesPhone phone({{"A-1", "Anna", {}, pictureBytes(Color::Red)}});
  EXPECT_EQ(phone.picturesFor(byDisplayText("Anna")), Colors{Color::Red});
  for (const char* text : {"anna", "Family", "A-1", "+491511", "Anna "})
    EXPECT_EQ(phone.picturesFor(byDisplayText(text)), Colors{}) << text;
}

TEST(MessagesPhoto, DisplayTextCanBeAnEmailAddress) {
  MessagesPhone phone({{"A-1", "Anna", {"anna@home.example", "anna@work.example"}, pictureBytes(Color::Green)}});
  EXPECT_EQ(phone.picturesFor(byDisplayText("anna@work.example")), Colors{Color::Green});
  EXPECT_EQ(phone.picturesFor(byDisplayText("Anna@Work.example")), Colors{});
}

TEST(MessagesPhoto, OnlyTheFirstMatchWithAPictureIsShown) {
  MessagesPhone phone(
      {{"A-1", "Anna"}, {"A-2", "Anna", {}, pictureBytes(Color::Blue)}, {"A-3", "Anna", {}, pictureBytes(Color::Red)}});
  EXPECT_EQ(phone.picturesFor(byDisplayText("Anna")), Colors{Color::Blue});
}

TEST(MessagesPhoto, UndecodablePictureEndsTheSearch) {
  MessagesPhone phone({{"A-1", "Anna", {}, "no picture"}, {"A-2", "Anna", {}, pictureBytes(Color::Blue)}});
  EXPECT_EQ(phone.picturesFor(byDisplayText("Anna")), Colors{});
}

TEST(MessagesPhoto, DisplayTextIsUsedOnlyWithoutIdentifierAndName) {
  MessagesPhone phone({{"A-1", "Anna", {}, pictureBytes(Color::Red)}});
  for (const char* key : {"CKBBContextKeySenderPersonCentricID", "CKBBContextKeySenderName"}) {
    Json values = byDisplayText("Anna");
    values[key] = "unknown";
    EXPECT_EQ(phone.picturesFor(values), Colors{}) << key;
  }
}

TEST(MessagesPhoto, MissingDictionariesMeanNoPicture) {
  MessagesPhone phone({{"A-1", "Anna", {}, pictureBytes(Color::Red)}});
  for (const Json& values : {Json::object(), Json{{"AssistantContext", Json::object()}},
                             Json{{"AssistantContext", {{"msgSender", Json::object()}}}}})
    EXPECT_EQ(phone.picturesFor(values), Colors{}) << values;
}

TEST(MessagesPhoto, UnreadableAddressBookHasNoContacts) {
  MessagesPhone phone;
  EXPECT_EQ(phone.picturesFor(byIdentifier("A-1")), Colors{}) << "without a file";
  const fs::path book = phone.root() / "var/mobile/Library/AddressBook/Contacts.vcf";
  fs::create_directories(book);
  EXPECT_EQ(phone.picturesFor(byIdentifier("A-1")), Colors{}) << "with a folder instead of the file";
  fs::remove(book);
  test::writeFile(book, "no cards");
  EXPECT_EQ(phone.picturesFor(byIdentifier("A-1")), Colors{}) << "with a file without vCards";
}

TEST(MessagesPhoto, NamesCanContainAnyCharacters) {
  MessagesPhone phone({{"A-1", "Zoë 🙂", {}, pictureBytes(Color::Red)}});
  EXPECT_EQ(phone.picturesFor(byDisplayText("Zoë 🙂")), Colors{Color::Red});
  for (const std::string& text :
       {std::string("Zoe\u0308 🙂'"), std::string("%"), std::string("\\"), std::string(), std::string(1 << 20, 'a')})
    EXPECT_EQ(phone.picturesFor(byDisplayText(text)), Colors{});
}

}  // namespace
