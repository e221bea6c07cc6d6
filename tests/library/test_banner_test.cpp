#include <gtest/gtest.h>

#include <set>

#include "simulator/springboard/services/bulletin_server.hpp"
#include "simulator/springboard/shell/home_screen.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::eventsOf;
using test::Json;
using test::Phone;

Json requestTestBanner(Phone& phone) {
  phone.log();
  phone.run({{"do", "testbanner"}});
  return phone.log();
}

TEST(TestBanner, IsPublishedAsANotificationOfMessages) {
  test::Setup setup;
  setup.options.time = 1584178860.0;
  Phone phone(setup);
  const auto published = eventsOf(requestTestBanner(phone), "publish");
  ASSERT_EQ(published.size(), 1U);
  const Json& bulletin = published[0];
  EXPECT_EQ(bulletin.at("title"), "Brim");
  EXPECT_EQ(bulletin.at("message"), "Test notification");
  EXPECT_EQ(bulletin.at("sectionID"), "com.apple.MobileSMS");
  EXPECT_EQ(bulletin.at("defaultAction"), "com.apple.MobileSMS");
  EXPECT_EQ(bulletin.at("destinations"), 15);
  EXPECT_EQ(bulletin.at("clearable"), true);
  EXPECT_EQ(bulletin.at("showsMessagePreview"), true);
  for (const char* date : {"date", "publicationDate", "lastInterruptDate"})
    EXPECT_EQ(bulletin.at(date), "2020-03-14T09:41:00.000Z") << date;
}

TEST(TestBanner, HasAReplyField) {
  Phone phone;
  const int controller = phone.run({{"do", "testbanner"}}).at("controller");
  EXPECT_EQ(phone.view(controller, "headerLabel").at("text"), "Brim");
  EXPECT_EQ(phone.view(controller, "bodyLabel").at("text"), "Test notification");
  EXPECT_FALSE(phone.view(controller, "reply").is_null());
}

// The process receives some of its own notifications while it still communicates with the daemon.
TEST(TestBanner, EachOfManyRequestsIsDelivered) {
  Phone phone;
  for (int request = 1; request <= 20; ++request) {
    EXPECT_EQ(phone.run({{"do", "testbanner"}}).at("controller"), request);
    phone.wait(1);
  }
}

TEST(TestBanner, HasUniqueIdentifiers) {
  Phone phone;
  std::set<std::string> identifiers;
  for (int request = 0; request < 2; ++request) {
    for (const Json& bulletin : eventsOf(requestTestBanner(phone), "publish"))
      for (const char* field : {"bulletinID", "recordID", "publisherBulletinID"})
        identifiers.insert(bulletin.at(field).get<std::string>());
  }
  EXPECT_EQ(identifiers.size(), 6U);
}

TEST(TestBanner, VibratesRegardlessOfTheSettingWithoutTheHapticEngine) {
  Phone phone({.options = {}, .settings = {{"vibrate_on_send", false}}});
  for (const auto& [level, sound] : std::map<int, Json>{{0, {{"event", "sound"}, {"call", "alert"}, {"id", 4095}}},
                                                        {1, {{"event", "sound"}, {"call", "system"}, {"id", 1520}}},
                                                        {2, {{"event", "sound"}, {"call", "alert"}, {"id", 4095}}}}) {
    uikit::Environment environment = uikit::environment();
    environment.device.feedbackSupportLevel = level;
    uikit::setEnvironment(environment);
    const Json events = requestTestBanner(phone);
    EXPECT_EQ(events[0], sound) << level;
    EXPECT_TRUE(eventsOf(events, "haptic").empty());
  }
}

// Makes the library forget the bulletin server: sends the initializer to nil, as if the creation of a server had
// failed.
void forgetServer() {
  const SEL selector = sel_registerName("initWithQueue:");
  const IMP initializer = class_getMethodImplementation(BBServer::classObject(), selector);
  reinterpret_cast<id (*)(id, SEL, id)>(initializer)(nullptr, selector, nullptr);
}

TEST(TestBanner, OnlyVibratesWithoutAServer) {
  Phone phone;
  forgetServer();
  const Json events = requestTestBanner(phone);
  EXPECT_EQ(eventsOf(events, "sound").size(), 1U);
  EXPECT_TRUE(eventsOf(events, "publish").empty());
}

objc::Ref<BBServer> makeServer() {
  return objc::adopt(
      objc::send<BBServer*, "initWithQueue:">(objc::allocate<BBServer>(), static_cast<NSObject*>(nullptr)));
}

TEST(TestBanner, IsPublishedByTheLatestServer) {
  Phone phone;
  forgetServer();
  const auto server = makeServer();
  EXPECT_EQ(eventsOf(requestTestBanner(phone), "publish").size(), 1U);
}

TEST(TestBanner, IsPublishedAfterTheEarlierServersAreDeallocated) {
  Phone phone;
  const objc::Weak<BBServer> earlier(makeServer().get());
  EXPECT_NE(earlier.lock().get(), nullptr);
  const auto latest = makeServer();
  EXPECT_EQ(earlier.lock().get(), nullptr);
  EXPECT_EQ(eventsOf(requestTestBanner(phone), "publish").size(), 1U);
}

TEST(TestBanner, IsPublishedAfterAnEarlierServerIsDeallocatedLater) {
  Phone phone;
  auto earlier = makeServer();
  const objc::Weak<BBServer> weakEarlier(earlier.get());
  const auto latest = makeServer();
  earlier = nullptr;
  EXPECT_EQ(weakEarlier.lock().get(), nullptr);
  EXPECT_EQ(eventsOf(requestTestBanner(phone), "publish").size(), 1U);
}

TEST(TestBanner, IsPublishedOnceAfterAnotherHomeScreenIsDeallocated) {
  Phone phone;
  objc::Weak<SBHomeScreenViewController> weak;
  {
    const objc::AutoreleasePool pool;
    const auto another = objc::make<SBHomeScreenViewController>();
    weak = another.get();
    objc::send<void, "viewDidLoad">(another.get());
  }
  EXPECT_EQ(weak.lock().get(), nullptr);
  EXPECT_EQ(eventsOf(requestTestBanner(phone), "publish").size(), 1U);
}

}  // namespace
