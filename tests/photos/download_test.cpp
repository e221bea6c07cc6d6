// Discord, Instagram and Messenger: pictures by an address that the notification tells or implies.
#include <gtest/gtest.h>

#include <set>

#include "tests/photos/photo_phone.hpp"

namespace {

using test::Color;
using test::Colors;
using test::Delivery;
using test::Json;
using test::PhotoPhone;
using test::Timing;
using Targets = std::vector<std::string>;

constexpr const char* discord = "com.hammerandchisel.discord";
constexpr const char* instagram = "com.burbn.instagram";
constexpr const char* messenger = "com.facebook.Messenger";

Json discordAuthor(const Json& author) { return {{"message", {{"author", author}}}}; }

TEST(DiscordPhoto, IsTheAuthorsAvatarOfEightyPixels) {
  PhotoPhone phone;
  phone.serve("/avatars/123/abc.png?size=80", Color::Red);
  EXPECT_EQ(phone.shownAfter(discord, discordAuthor({{"id", "123"}, {"avatar", "abc"}})), Colors{Color::Red});
  EXPECT_EQ(phone.asked(), Targets{"/avatars/123/abc.png?size=80"});
  EXPECT_EQ(phone.server.requests().front().method, "GET");
}

TEST(DiscordPhoto, AuthorWithoutAvatarIsNotAskedFor) {
  PhotoPhone phone;
  for (const Json& author : {Json{{"id", "123"}}, Json{{"id", "123"}, {"avatar", nullptr}}, Json{{"avatar", "abc"}}})
    EXPECT_TRUE(phone.shownAfter(discord, discordAuthor(author)).empty());
  EXPECT_EQ(phone.asked(), Targets{});
}

TEST(InstagramPhoto, IsAtTheAddressThatIsSentAlong) {
  PhotoPhone phone;
  phone.serve("/photo.jpg?s=1", Color::Green);
  EXPECT_EQ(phone.shownAfter(instagram, {{"a", phone.server.address("/photo.jpg?s=1")}}), Colors{Color::Green});
}

TEST(MessengerPhoto, IsTheSquarePictureOfTheSender) {
  PhotoPhone phone;
  phone.serve("/1000/picture?type=square", Color::Blue);
  EXPECT_EQ(phone.shownAfter(messenger, {{"p", {{"a", "1000"}}}}), Colors{Color::Blue});
}

TEST(MessengerPhoto, InnerDictionaryAloneCountsWhereItIsThere) {
  PhotoPhone phone;
  phone.present(messenger, {{"rp", {{"p", {{"a", "1"}}}}}, {"p", {{"a", "2"}}}});
  phone.present(messenger, {{"rp", {{"q", 1}}}, {"p", {{"a", "3"}}}});
  phone.present(messenger, {{"rp", {{"p", Json::object()}}}, {"p", {{"a", "4"}}}});
  phone.settle();
  EXPECT_EQ(phone.asked(), Targets{"/1/picture?type=square"});
}

TEST(MessengerPhoto, WithoutSenderNothingIsAskedFor) {
  PhotoPhone phone;
  for (const Json& values : {Json::object(), Json{{"p", Json::object()}}, Json{{"a", "1"}}})
    phone.shownAfter(messenger, values);
  EXPECT_EQ(phone.asked(), Targets{});
}

TEST(Download, BannerShowsThePictureWithTheGlyphBesideIt) {
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
  phone.settle();
  EXPECT_EQ(phone.pictures.all(), Colors{Color::Red});
}

TEST(Download, BannerThatHasGoneNeedsNoPicture) {
  PhotoPhone phone;
  phone.server.answer("/photo.png", {.body = pictureBytes(Color::Red), .timing = Timing::WhenReleased});
  const int controller = phone.present(instagram, {{"a", phone.server.address("/photo.png")}});
  ASSERT_TRUE(phone.server.waitForRequests(1));
  phone.phone.wait(10);
  ASSERT_TRUE(phone.phone.state(controller).at("dismissed"));
  phone.server.release();
  phone.settle();
  EXPECT_TRUE(phone.pictures.all().empty());
}

TEST(Download, StatusOfThePictureDoesNotMatter) {
  PhotoPhone phone;
  phone.server.answer("/photo.png", {.status = 404, .body = pictureBytes(Color::Red)});
  EXPECT_EQ(phone.shownAfter(instagram, {{"a", phone.server.address("/photo.png")}}), Colors{Color::Red});
}

TEST(Download, WhatCannotBeShownChangesNothing) {
  PhotoPhone phone;
  const std::string picture = pictureBytes(Color::Red);
  phone.server.answer("/text", {.body = "<html>no picture</html>"});
  phone.server.answer("/empty", {});
  phone.server.answer("/truncated", {.body = picture.substr(0, picture.size() / 2)});
  phone.server.answer("/cut", {.body = picture, .delivery = Delivery::CutShort});
  phone.server.answer("/closed", {.delivery = Delivery::Nothing});
  for (const char* target : {"/text", "/empty", "/truncated", "/cut", "/closed", "/missing"})
    EXPECT_TRUE(phone.shownAfter(instagram, {{"a", phone.server.address(target)}}).empty()) << target;
  const Targets all = phone.asked();
  EXPECT_EQ(std::set<std::string>(all.begin(), all.end()).size(), 6U);
}

TEST(Download, EndlessAnswerIsGivenUp) {
  PhotoPhone phone;
  phone.server.answer("/endless", {.body = std::string(1 << 20, 'x'), .delivery = Delivery::Endless});
  EXPECT_TRUE(phone.shownAfter(instagram, {{"a", phone.server.address("/endless")}}).empty());
}

TEST(Download, ServerThatIsNotThereChangesNothing) {
  PhotoPhone phone;
  std::string nobody;
  {
    const test::LoopbackServer gone;
    nobody = gone.address("/photo.png");
  }
  EXPECT_TRUE(phone.shownAfter(instagram, {{"a", nobody}}).empty());
}

TEST(Download, OnlyAddressesOfWebServersAreAskedFor) {
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
    EXPECT_TRUE(phone.shownAfter(instagram, {{"a", address}}).empty()) << address;
  EXPECT_EQ(phone.asked(), Targets{});
  for (const Json& event : phone.phone.log()) EXPECT_NE(event.at("event"), "http") << event;
}

TEST(Download, SchemeMayBeInUpperCase) {
  PhotoPhone phone;
  phone.serve("/photo.png", Color::Red);
  const std::string address = "HTTP" + phone.server.address("/photo.png").substr(4);
  EXPECT_EQ(phone.shownAfter(instagram, {{"a", address}}), Colors{Color::Red});
}

TEST(Download, IdentifiersThatMakeNoAddressAreNotAskedFor) {
  PhotoPhone phone;
  for (const std::string& identifier : {std::string("a b"), std::string("<>\"{}"), std::string("%zz"), std::string("ü"),
                                        std::string("🙂"), std::string("a\nHost: evil"), std::string("\\")}) {
    phone.shownAfter(messenger, {{"p", {{"a", identifier}}}});
    phone.shownAfter(discord, discordAuthor({{"id", identifier}, {"avatar", "abc"}}));
  }
  EXPECT_EQ(phone.asked(), Targets{});
}

TEST(Download, HugeIdentifierDoesNoHarm) {
  PhotoPhone phone;
  EXPECT_TRUE(phone.shownAfter(messenger, {{"p", {{"a", std::string(1 << 20, 'x')}}}}).empty());
}

}  // namespace
