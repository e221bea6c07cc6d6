// Tests of pictures that are downloaded for Discord, Instagram and Messenger. The user info contains the address of the
// picture, or the values from which the address is built.
#include <gtest/gtest.h>

#include <set>

#include "tests/photos/photo_phone.hpp"

namespace {

using test::Color;
using test::Colors;
using test::Delivery;
using test::Json;
using test::PhotoPhone;
using test::Targets;
using test::Timing;

constexpr const char* discord = "com.hammerandchisel.discord";
constexpr const char* instagram = "com.burbn.instagram";
constexpr const char* messenger = "com.facebook.Messenger";

Json discordAuthor(const Json& author) { return {{"message", {{"author", author}}}}; }

TEST(DiscordPhoto, IsTheAvatarOfTheAuthorWith80Pixels) {
  PhotoPhone phone;
  phone.serve("/avatars/123/abc.png?size=80", Color::Red);
  EXPECT_EQ(phone.picturesAfter(discord, discordAuthor({{"id", "123"}, {"avatar", "abc"}})), Colors{Color::Red});
  EXPECT_EQ(phone.requestedTargets(), Targets{"/avatars/123/abc.png?size=80"});
  EXPECT_EQ(phone.server.requests().front().method, "GET");
}

TEST(DiscordPhoto, AuthorWithoutAvatarCausesNoRequest) {
  PhotoPhone phone;
  for (const Json& author : {Json{{"id", "123"}}, Json{{"id", "123"}, {"avatar", nullptr}}, Json{{"avatar", "abc"}}})
    EXPECT_TRUE(phone.picturesAfter(discord, discordAuthor(author)).empty());
  EXPECT_EQ(phone.requestedTargets(), Targets{});
}

TEST(InstagramPhoto, IsLoadedFromTheAddressInTheUserInfo) {
  PhotoPhone phone;
  phone.serve("/photo.jpg?s=1", Color::Green);
  EXPECT_EQ(phone.picturesAfter(instagram, {{"a", phone.server.address("/photo.jpg?s=1")}}), Colors{Color::Green});
}

TEST(MessengerPhoto, IsTheSquarePictureOfTheSender) {
  PhotoPhone phone;
  phone.serve("/1000/picture?type=square", Color::Blue);
  EXPECT_EQ(phone.picturesAfter(messenger, {{"p", {{"a", "1000"}}}}), Colors{Color::Blue});
}

TEST(MessengerPhoto, OnlyTheInnerDictionaryIsUsedIfItExists) {
  PhotoPhone phone;
  phone.present(messenger, {{"rp", {{"p", {{"a", "1"}}}}}, {"p", {{"a", "2"}}}});
  phone.present(messenger, {{"rp", {{"q", 1}}}, {"p", {{"a", "3"}}}});
  phone.present(messenger, {{"rp", {{"p", Json::object()}}}, {"p", {{"a", "4"}}}});
  phone.waitUntilIdle();
  EXPECT_EQ(phone.requestedTargets(), Targets{"/1/picture?type=square"});
}

TEST(MessengerPhoto, MissingSenderCausesNoRequest) {
  PhotoPhone phone;
  for (const Json& values : {Json::object(), Json{{"p", Json::object()}}, Json{{"a", "1"}}})
    phone.picturesAfter(messenger, values);
  EXPECT_EQ(phone.requestedTargets(), Targets{});
}

TEST(Download, BannerShowsThePictureAndTheGlyph) {
  PhotoPhone phone;
  phone.serve("/photo.png", Color::Green);
  const int controller = phone.present(instagram, {{"a", phone.server.address("/photo.png")}});
  const Json icon = phone.phone.view(controller, "_appIV").at("image");
  phone.phone.run({{"do", "await"}, {"for", "photo"}});
  EXPECT_NE(phone.phone.view(controller, "_appIV").value("image", ""), icon);
  const std::string badge = phone.phone.view(controller, "_appDetailImage").at("image");
  EXPECT_NE(badge.find("instagram"), std::string::npos) << badge;
}

TEST(Download, PresentingDoesNotWaitForTheServer) {
  PhotoPhone phone;
  phone.server.answer("/photo.png", {.body = pictureBytes(Color::Red), .timing = Timing::WhenReleased});
  const int controller = phone.present(instagram, {{"a", phone.server.address("/photo.png")}});
  EXPECT_FALSE(phone.phone.banner(controller).is_null());
  EXPECT_TRUE(phone.pictures.all().empty());
  phone.server.release();
  phone.waitUntilIdle();
  EXPECT_EQ(phone.pictures.all(), Colors{Color::Red});
}

TEST(Download, DismissedBannerReceivesNoPicture) {
  PhotoPhone phone;
  phone.server.answer("/photo.png", {.body = pictureBytes(Color::Red), .timing = Timing::WhenReleased});
  const int controller = phone.present(instagram, {{"a", phone.server.address("/photo.png")}});
  ASSERT_TRUE(phone.server.waitForRequests(1));
  phone.phone.wait(10);
  ASSERT_TRUE(phone.phone.state(controller).at("dismissed"));
  phone.server.release();
  phone.waitUntilIdle();
  EXPECT_TRUE(phone.pictures.all().empty());
}

TEST(Download, StatusOfTheResponseIsIgnored) {
  PhotoPhone phone;
  phone.server.answer("/photo.png", {.status = 404, .body = pictureBytes(Color::Red)});
  EXPECT_EQ(phone.picturesAfter(instagram, {{"a", phone.server.address("/photo.png")}}), Colors{Color::Red});
}

TEST(Download, ResponseWithoutADecodablePictureChangesNothing) {
  PhotoPhone phone;
  const std::string picture = pictureBytes(Color::Red);
  phone.server.answer("/text", {.body = "<html>no picture</html>"});
  phone.server.answer("/empty", {});
  phone.server.answer("/truncated", {.body = picture.substr(0, picture.size() / 2)});
  phone.server.answer("/cut", {.body = picture, .delivery = Delivery::CutShort});
  phone.server.answer("/closed", {.delivery = Delivery::Nothing});
  for (const char* target : {"/text", "/empty", "/truncated", "/cut", "/closed", "/missing"})
    EXPECT_TRUE(phone.picturesAfter(instagram, {{"a", phone.server.address(target)}}).empty()) << target;
  const Targets all = phone.requestedTargets();
  EXPECT_EQ(std::set<std::string>(all.begin(), all.end()).size(), 6U);
}

TEST(Download, EndlessResponseIsAborted) {
  PhotoPhone phone;
  phone.server.answer("/endless", {.body = std::string(1 << 20, 'x'), .delivery = Delivery::Endless});
  EXPECT_TRUE(phone.picturesAfter(instagram, {{"a", phone.server.address("/endless")}}).empty());
}

TEST(Download, UnreachableServerChangesNothing) {
  PhotoPhone phone;
  std::string unreachable;
  {
    const test::LoopbackServer closed;
    unreachable = closed.address("/photo.png");
  }
  EXPECT_TRUE(phone.picturesAfter(instagram, {{"a", unreachable}}).empty());
}

TEST(Download, OnlyValidHttpAddressesAreRequested) {
  PhotoPhone phone;
  writePicture(phone.root() / "photo.png", Color::Red);
  const std::string server = phone.server.address();
  const std::string host = server.substr(std::string("http://").size());
  phone.phone.log();
  const std::vector<std::string> addresses = {std::string(),
                                              std::string(" "),
                                              "file://" + (phone.root() / "photo.png").string(),
                                              (phone.root() / "photo.png").string(),
                                              std::string("data:image/png;base64,iVBORw0KGgo="),
                                              "ftp://" + host + "/",
                                              std::string("javascript:alert(1)"),
                                              host + "/photo.png",
                                              "//" + host + "/photo.png",
                                              "http:",
                                              "http://",
                                              "http:///photo.png",
                                              "http:photo.png",
                                              server + "/a b",
                                              " " + server + "/",
                                              server + "/\n",
                                              server + "/\t",
                                              "gopher://" + host + "/",
                                              "http://[::1",
                                              "https"};
  for (const std::string& address : addresses)
    EXPECT_TRUE(phone.picturesAfter(instagram, {{"a", address}}).empty()) << address;
  EXPECT_EQ(phone.requestedTargets(), Targets{});
  for (const Json& event : phone.phone.log()) EXPECT_NE(event.at("event"), "http") << event;
}

TEST(Download, SchemeIsCaseInsensitive) {
  PhotoPhone phone;
  phone.serve("/photo.png", Color::Red);
  const std::string address = "HTTP" + phone.server.address("/photo.png").substr(4);
  EXPECT_EQ(phone.picturesAfter(instagram, {{"a", address}}), Colors{Color::Red});
}

TEST(Download, IdentifiersThatMakeAnInvalidAddressCauseNoRequest) {
  PhotoPhone phone;
  for (const std::string& identifier : {std::string("a b"), std::string("<>\"{}"), std::string("%zz"), std::string("ü"),
                                        std::string("🙂"), std::string("a\nHost: evil"), std::string("\\")}) {
    phone.picturesAfter(messenger, {{"p", {{"a", identifier}}}});
    phone.picturesAfter(discord, discordAuthor({{"id", identifier}, {"avatar", "abc"}}));
  }
  EXPECT_EQ(phone.requestedTargets(), Targets{});
}

TEST(Download, HugeIdentifierIsHarmless) {
  PhotoPhone phone;
  EXPECT_TRUE(phone.picturesAfter(messenger, {{"p", {{"a", std::string(1 << 20, 'x')}}}}).empty());
}

}  // namespace
