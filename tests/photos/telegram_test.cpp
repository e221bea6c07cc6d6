#include <gtest/gtest.h>

#include "tests/photos/photo_phone.hpp"

namespace {

namespace fs = std::filesystem;
using test::Color;
using test::Colors;
using test::Json;
using test::PhotoPhone;

constexpr const char* telegram = "ph.telegra.Telegraph";

struct TelegramPhone : PhotoPhone {
  fs::path avatars = test::makeContainer(test::sharedContainers(root()), "T1", "group.ph.telegra.Telegraph") /
                     "telegram-data/accounts-metadata/spotlight";
};

TEST(TelegramPhoto, IsTheAvatarFileOfTheSender) {
  TelegramPhone phone;
  writePicture(phone.avatars / "p:42/avatar.png", Color::Green);
  EXPECT_EQ(phone.picturesAfter(telegram, {{"from_id", "42"}}), Colors{Color::Green});
}

TEST(TelegramPhoto, SenderCanBeANumber) {
  TelegramPhone phone;
  writePicture(phone.avatars / "p:42/avatar.png", Color::Green);
  EXPECT_EQ(phone.picturesAfter(telegram, {{"from_id", 42}}), Colors{Color::Green});
}

TEST(TelegramPhoto, MissingOrInvalidFileShowsNothing) {
  TelegramPhone phone;
  writePicture(phone.avatars / "p:42/avatar.png", Color::Green);
  test::writeFile(phone.avatars / "p:44/avatar.png", "no picture");
  fs::create_directories(phone.avatars / "p:45/avatar.png");
  for (const char* sender : {"43", "44", "45", "", "../p:46", "%@", "4\n2"})
    EXPECT_TRUE(phone.picturesAfter(telegram, {{"from_id", sender}}).empty()) << sender;
}

TEST(TelegramPhoto, MissingSenderOrContainerShowsNothing) {
  TelegramPhone phone;
  writePicture(phone.avatars / "p:(null)/avatar.png", Color::Green);
  EXPECT_TRUE(phone.picturesAfter(telegram, Json::object()).empty());
  fs::remove_all(test::sharedContainers(phone.root()) / "T1");
  EXPECT_TRUE(phone.picturesAfter(telegram, {{"from_id", "42"}}).empty());
}

}  // namespace
