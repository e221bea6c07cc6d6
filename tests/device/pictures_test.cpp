// Sender pictures from the web in the phone's library: the requests, and the handling of responses.
#include <gtest/gtest.h>

#include "tests/device/banner.hpp"

namespace {

using device::Address;
using device::Banner;
using device::Message;
using device::Phone;
using device::storedValue;

Address dictionaryOf(Phone& phone, const std::string& key, Address value) {
  const Address made = phone.runtime.sendClass("NSMutableDictionary", "dictionaryWithCapacity:", {1});
  phone.runtime.send(made, "setObject:forKey:", {value, phone.string(key)});
  return made;
}

// Creates a notification request with these values in its user info.
Address requestWith(Phone& phone, Address values) {
  if (phone.runtime.find("Request") == nullptr) phone.runtime.define("Request");
  for (const char* step : {"userNotification", "request", "content"})
    phone.runtime.addMethod("Request", step, "@@:", [](const Message& message) { message.answer(message.self); });
  phone.runtime.addMethod("Request", "userInfo", "@@:", [values](const Message& message) { message.answer(values); });
  return phone.runtime.make("Request");
}

Address discordValues(Phone& phone, Address identifier, Address avatar) {
  const Address author = dictionaryOf(phone, "id", identifier);
  phone.runtime.send(author, "setObject:forKey:", {avatar, phone.string("avatar")});
  return dictionaryOf(phone, "message", dictionaryOf(phone, "author", author));
}

void findPicture(Phone& phone, const Banner& banner, Address values) {
  const Address provider = phone.runtime.make("BrimDiscordContactPhotoProvider");
  phone.runtime.send(provider, "contactPhotoForNotification:withHeader:withBody:forView:",
                     {requestWith(phone, values), phone.string("Anna"), phone.string("Hello"), banner.view});
  phone.runtime.release(provider);
}

TEST(PhonePictures, AreRequestedAndShownWhenTheyArrive) {
  Phone phone;
  Banner banner(phone);
  banner.show();
  findPicture(phone, banner, discordValues(phone, phone.string("123"), phone.string("abc")));
  ASSERT_EQ(phone.pictures->requests.size(), 1U);
  EXPECT_EQ(phone.pictures->requests[0].address, "https://cdn.discordapp.com/avatars/123/abc.png?size=80");
  EXPECT_EQ(storedValue(phone.runtime, banner.part("_appIV"), "image"), banner.icon);
  phone.pictures->answerRequest(phone.runtime.make("NSData"));
  EXPECT_EQ(storedValue(phone.runtime, banner.part("_appIV"), "image"), banner.icon) << "before the main queue has run";
  phone.c.runMainQueue();
  EXPECT_EQ(phone.text(storedValue(phone.runtime, banner.part("_appIV"), "image")), "decoded");
}

TEST(PhonePictures, AreRequestedFromTheHostInTheEndpointsFile) {
  constexpr std::uint64_t withoutWaitingAndNotForChildren = 0x100'0004;
  Phone phone;
  const Banner banner(phone);
  const std::string path = "/Library/Application Support/Brim/Assets.bundle/endpoints.plist";
  phone.pictures->file = {path, "discordAvatars=https://pictures.example.org"};
  findPicture(phone, banner, discordValues(phone, phone.string("123"), phone.string("abc")));
  ASSERT_EQ(phone.pictures->requests.size(), 1U);
  EXPECT_EQ(phone.pictures->requests[0].address, "https://pictures.example.org/avatars/123/abc.png?size=80");
  ASSERT_EQ(phone.pictures->fileOpenings.size(), 1U);
  EXPECT_EQ(phone.pictures->fileOpenings[0].name, path);
  EXPECT_EQ(phone.pictures->fileOpenings[0].flags, withoutWaitingAndNotForChildren);
  EXPECT_EQ(phone.pictures->openFiles, 0);
}

TEST(PhonePictures, ThatFailToLoadHaveNoEffect) {
  Phone phone;
  Banner banner(phone);
  banner.show();
  findPicture(phone, banner, discordValues(phone, phone.string("123"), phone.string("abc")));
  phone.pictures->answerRequest(std::nullopt);
  phone.c.runMainQueue();
  EXPECT_EQ(storedValue(phone.runtime, banner.part("_appIV"), "image"), banner.icon);
}

TEST(PhonePictures, OfADeallocatedBannerAreIgnored) {
  Phone phone;
  Banner banner(phone);
  findPicture(phone, banner, discordValues(phone, phone.string("123"), phone.string("abc")));
  while (!phone.runtime.object(banner.view).isDeallocated) phone.runtime.release(banner.view);
  phone.pictures->answerRequest(phone.runtime.make("NSData"));
  EXPECT_NO_THROW(phone.c.runMainQueue());
}

TEST(PhonePictures, AreNotRequestedForValuesOfOtherTypes) {
  Phone phone;
  const Banner banner(phone);
  const Address stranger = phone.runtime.make("NSObject");
  findPicture(phone, banner, stranger);
  findPicture(phone, banner, dictionaryOf(phone, "message", stranger));
  findPicture(phone, banner, discordValues(phone, phone.string("123"), stranger));
  findPicture(phone, banner, discordValues(phone, stranger, phone.string("abc")));
  findPicture(phone, banner, discordValues(phone, phone.string("1 2"), phone.string("abc")));
  EXPECT_TRUE(phone.pictures->requests.empty());
}

}  // namespace
