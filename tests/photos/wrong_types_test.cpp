// Tests of user info in which a value has an unexpected type. The banner is shown without a picture of the sender.
#include <gtest/gtest.h>

#include "tests/photos/photo_phone.hpp"

namespace {

using test::Color;
using test::Colors;
using test::Json;
using test::PhotoPhone;

// Valid user info of an application.
struct Sample {
  const char* application;
  Json userInfo;
};

std::vector<Sample> samples(const PhotoPhone& phone) {
  const std::string picture = phone.server.address("/photo.png");
  return {
      {"net.whatsapp.WhatsApp", {{"jid", "1@s"}, {"retry-notification-key", "1"}}},
      {"com.atebits.Tweetie2", {{"tweet", {{"author", {{"profile_image_url", picture}}}}}}},
      {"com.atebits.Tweetie2", {{"D", "page"}}},
      {"com.tinyspeck.chatlyio",
       {{"aps", {{"alert", {{"body", "Alice: hi"}}}, {"thread-id", "D1"}}}, {"team_id", "T1"}}},
      {"com.hammerandchisel.discord", {{"message", {{"author", {{"id", "1"}, {"avatar", "a"}}}}}}},
      {"com.burbn.instagram", {{"a", picture}}},
      {"com.facebook.Messenger", {{"p", {{"a", "1"}}}}},
      {"com.facebook.Messenger", {{"rp", {{"p", {{"a", "1"}}}}}}},
      {"ph.telegra.Telegraph", {{"from_id", "42"}}},
      {"com.apple.MobileSMS", {{"CKBBContextKeySenderPersonCentricID", "A-1"}}},
      {"com.apple.MobileSMS", {{"CKBBContextKeySenderName", "A-1"}}},
      {"com.apple.MobileSMS", {{"AssistantContext", {{"msgSender", {{"displayText", "Anna"}}}}}}},
  };
}

// Collects the JSON pointers of all values. A dictionary precedes its values.
void collectPaths(const Json& value, const std::string& path, std::vector<std::string>& found) {
  if (!value.is_object()) return;
  for (const auto& [key, member] : value.items()) {
    const std::string whole = path + "/" + key;
    found.push_back(whole);
    collectPaths(member, whole, found);
  }
}

const std::vector<Json> unexpectedValues = {
    -1.5, true, nullptr, "", Json::array({"a", Json::object()}), Json{{"author", 1}, {"p", 1}, {"a", Json::array()}}};

constexpr double secondsUntilDismissal = 7;

class WrongTypes : public testing::Test {
 protected:
  WrongTypes() {
    phone.serve("/photo.png", Color::Red);
    test::writePicture(test::makeContainer(test::sharedContainers(phone.root()), "T1", "group.ph.telegra.Telegraph") /
                           "telegram-data/accounts-metadata/spotlight/p:42/avatar.png",
                       Color::Red);
  }

  // Presents a notification and expects that its banner is given no picture.
  void expectNoPicture(const char* application, const Json& userInfo) {
    const int controller = phone.present(application, userInfo);
    phone.waitUntilIdle();
    EXPECT_TRUE(phone.phone.state(controller).at("brim")) << application << userInfo;
    EXPECT_EQ(phone.pictures.all(), Colors{}) << application << userInfo;
    phone.phone.wait(secondsUntilDismissal);
  }

  PhotoPhone phone;
};

TEST_F(WrongTypes, InOneValueMeanNoPicture) {
  for (const Sample& sample : samples(phone)) {
    std::vector<std::string> paths;
    collectPaths(sample.userInfo, "", paths);
    for (const std::string& path : paths) {
      for (const Json& unexpectedValue : unexpectedValues) {
        Json changed = sample.userInfo;
        changed[Json::json_pointer(path)] = unexpectedValue;
        expectNoPicture(sample.application, changed);
      }
    }
  }
}

TEST_F(WrongTypes, EmptyUserInfoMeansNoPicture) {
  for (const Sample& sample : samples(phone)) expectNoPicture(sample.application, Json::object());
}

TEST_F(WrongTypes, MissingValueMeansNoPicture) {
  for (const Sample& sample : samples(phone)) {
    std::vector<std::string> paths;
    collectPaths(sample.userInfo, "", paths);
    for (const std::string& path : paths) {
      Json changed = sample.userInfo;
      const std::size_t slash = path.rfind('/');
      changed[Json::json_pointer(path.substr(0, slash))].erase(path.substr(slash + 1));
      expectNoPicture(sample.application, changed);
    }
  }
}

TEST_F(WrongTypes, IdentifierCanBeANumber) {
  phone.serve("/7/picture?type=square", Color::Green);
  EXPECT_EQ(phone.picturesAfter("com.facebook.Messenger", {{"p", {{"a", 7}}}}), Colors{Color::Green});
}

}  // namespace
