#include <gtest/gtest.h>

#include "tests/photos/photo_phone.hpp"

namespace {

using test::Color;
using test::Colors;
using test::Json;
using test::PhotoPhone;
using test::Targets;

constexpr const char* twitter = "com.atebits.Tweetie2";

Json tweetWith(const Json& author) { return {{"tweet", {{"author", author}}}}; }

struct TwitterPhone : PhotoPhone {
  std::string imageAddress(const std::string& name) const { return server.address("/profile_images/" + name); }
  std::string pageWith(const std::vector<std::string>& images) const {
    std::string page = "<html><head><title>Anna</title></head><body>";
    for (const std::string& each : images) page += "<img src=\"" + each + "\" alt=\"\">";
    return page + "</body></html>";
  }
};

TEST(TwitterPhoto, IsLoadedFromTheAddressInTheTweetWithoutTheProfilePage) {
  TwitterPhone phone;
  phone.serve("/profile_images/1/a_normal.jpg", Color::Red);
  Json values = tweetWith({{"profile_image_url", phone.imageAddress("1/a_normal.jpg")}});
  values["D"] = "anna";
  EXPECT_EQ(phone.picturesAfter(twitter, values), Colors{Color::Red});
  EXPECT_EQ(phone.requestedTargets(), Targets{"/profile_images/1/a_normal.jpg"});
}

TEST(TwitterPhoto, TweetWithoutAddressDoesNotRequestTheProfilePage) {
  TwitterPhone phone;
  for (Json values : {tweetWith({{"name", "Anna"}}), Json{{"tweet", Json::object()}}, Json{{"tweet", nullptr}},
                      Json{{"tweet", "text"}}}) {
    values["D"] = "anna";
    EXPECT_TRUE(phone.picturesAfter(twitter, values).empty());
  }
  EXPECT_EQ(phone.requestedTargets(), Targets{});
}

TEST(TwitterPhoto, MissingTweetAndAccountCauseNoRequest) {
  TwitterPhone phone;
  EXPECT_TRUE(phone.picturesAfter(twitter, {{"other", 1}}).empty());
  EXPECT_EQ(phone.requestedTargets(), Targets{});
}

TEST(TwitterPhoto, IsTheFirstPictureOfTheProfilePage) {
  TwitterPhone phone;
  phone.server.answer(
      "/anna", {.body = phone.pageWith({"https://other.example/profile_images/0/x.jpg", phone.imageAddress("1/a.jpg"),
                                        phone.imageAddress("2/b.jpg")})});
  phone.serve("/profile_images/1/a.jpg", Color::Green);
  phone.serve("/profile_images/2/b.jpg", Color::Blue);
  EXPECT_EQ(phone.picturesAfter(twitter, {{"D", "anna"}}), Colors{Color::Green});
  EXPECT_EQ(phone.requestedTargets(), (Targets{"/anna", "/profile_images/1/a.jpg"}));
}

TEST(TwitterPhoto, AddressInThePageIsMatchedCaseInsensitively) {
  TwitterPhone phone;
  const std::string address = "HTTP" + phone.server.address("/PROFILE_IMAGES/1/A.JPG").substr(4);
  phone.server.answer("/anna", {.body = phone.pageWith({address})});
  phone.serve("/PROFILE_IMAGES/1/A.JPG", Color::Green);
  EXPECT_EQ(phone.picturesAfter(twitter, {{"D", "anna"}}), Colors{Color::Green});
}

TEST(TwitterPhoto, PageIsSearchedOnlyIfItsStatusIs200) {
  TwitterPhone phone;
  const std::string page = phone.pageWith({phone.imageAddress("1/a.jpg")});
  phone.serve("/profile_images/1/a.jpg", Color::Green);
  for (const int status : {201, 204, 301, 403, 404, 500}) {
    phone.server.answer("/anna", {.status = status, .body = page});
    EXPECT_TRUE(phone.picturesAfter(twitter, {{"D", "anna"}}).empty()) << status;
  }
  EXPECT_EQ(phone.requestedTargets(), Targets(6, "/anna"));
}

TEST(TwitterPhoto, PageWithoutAValidPictureAddressShowsNothing) {
  TwitterPhone phone;
  const std::string image = phone.imageAddress("1/a.jpg");
  for (const std::string& body :
       {std::string(), phone.pageWith({}), phone.pageWith({"https://other.example/profile_images/1/a.jpg"}),
        phone.server.address("/profile_images/\""), phone.pageWith({image}) + "\xff\xfe", std::string(1000, '\0')}) {
    phone.server.answer("/anna", {.body = body});
    EXPECT_TRUE(phone.picturesAfter(twitter, {{"D", "anna"}}).empty());
  }
  phone.server.answer("/anna", {.body = phone.pageWith({image}), .delivery = test::Delivery::CutShort});
  EXPECT_TRUE(phone.picturesAfter(twitter, {{"D", "anna"}}).empty());
  EXPECT_EQ(phone.requestedTargets(), Targets(7, "/anna"));
}

TEST(TwitterPhoto, DotsOfTheImageHostMatchLiterally) {
  TwitterPhone phone;
  const std::string other = "http://127x0x0x1" + phone.server.address().substr(phone.server.address().rfind(':'));
  phone.server.answer("/anna",
                      {.body = phone.pageWith({other + "/profile_images/1/a.jpg", phone.imageAddress("2/b.jpg")})});
  phone.serve("/profile_images/2/b.jpg", Color::Blue);
  EXPECT_EQ(phone.picturesAfter(twitter, {{"D", "anna"}}), Colors{Color::Blue});
}

TEST(TwitterPhoto, LongPageIsSearchedCompletely) {
  TwitterPhone phone;
  phone.server.answer("/anna", {.body = std::string(4 << 20, ' ') + phone.pageWith({phone.imageAddress("1/a.jpg")})});
  phone.serve("/profile_images/1/a.jpg", Color::Green);
  EXPECT_EQ(phone.picturesAfter(twitter, {{"D", "anna"}}), Colors{Color::Green});
}

TEST(TwitterPhoto, AccountThatMakesAnInvalidAddressCausesNoRequest) {
  TwitterPhone phone;
  for (const char* account : {"an na", "ü", "🙂", "a\"b", "\n"})
    EXPECT_TRUE(phone.picturesAfter(twitter, {{"D", account}}).empty()) << account;
  EXPECT_EQ(phone.requestedTargets(), Targets{});
}

TEST(TwitterPhoto, DismissedBannerDoesNotRequestThePicture) {
  TwitterPhone phone;
  phone.server.answer("/anna",
                      {.body = phone.pageWith({phone.imageAddress("1/a.jpg")}), .timing = test::Timing::WhenReleased});
  const int controller = phone.present(twitter, {{"D", "anna"}});
  ASSERT_TRUE(phone.server.waitForRequests(1));
  phone.phone.wait(10);
  ASSERT_TRUE(phone.phone.state(controller).at("dismissed"));
  phone.server.release();
  phone.waitUntilIdle();
  EXPECT_EQ(phone.requestedTargets(), Targets{"/anna"});
  EXPECT_TRUE(phone.pictures.all().empty());
}

}  // namespace
