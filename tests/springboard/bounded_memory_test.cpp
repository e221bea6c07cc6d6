// Tests that the amount of data about past notifications is limited on a phone that runs for a long time.
#include "objc/autorelease_pool.hpp"
#include "simulator/drawing/canvas.hpp"
#include "simulator/drawing/image.hpp"
#include "simulator/runner/recent_values.hpp"
#include "simulator/springboard/services/applications.hpp"
#include "simulator/springboard/services/notification_description.hpp"
#include "simulator/springboard/services/notification_dispatcher.hpp"
#include "tests/library/live_objects.hpp"
#include "tests/support/plain_phone.hpp"

namespace {

using test::PlainPhone;

// Presents notifications of different applications and conversations, and lets each banner depart.
void presentMany(PlainPhone& phone, int count) {
  static int number = 0;
  for (int round = 0; round < count; ++round) {
    const objc::AutoreleasePool pool;
    const std::string text = std::to_string(++number);
    phone.present({{"section", "org.example.application" + text}, {"thread", text}, {"message", text}});
    phone.wait(7);
  }
  phone.log();
}

TEST(BoundedMemory, NoObjectOfABannerRemains) {
  PlainPhone phone({.device = "iphone-8"});
  test::startCountingLiveObjects();
  const auto release = [] {
    const objc::AutoreleasePool pool;
    for (const auto& request : NCNotificationDispatcher::shared()->list().all())
      NCNotificationDispatcher::shared()->withdraw(request);
  };
  presentMany(phone, 20);
  release();
  const std::ptrdiff_t before = test::liveObjectCount();
  presentMany(phone, 100);
  release();
  EXPECT_EQ(test::liveObjectCount(), before);
}

TEST(BoundedMemory, ListDiscardsTheOldestRequests) {
  PlainPhone phone;
  test::startCountingLiveObjects();
  springboard::NotificationList list;
  const auto insertMany = [&list] {
    for (int round = 0; round < 1500; ++round) {
      const objc::AutoreleasePool pool;
      springboard::NotificationDescription description;
      description.section = "org.example.mail";
      list.insert(springboard::makeRequest(description, nullptr));
    }
    return test::liveObjectCount();
  };
  const std::ptrdiff_t first = insertMany();
  EXPECT_EQ(insertMany(), first);
  EXPECT_EQ(list.all().size(), 1000U);
}

TEST(BoundedMemory, OnlyTheLatestIconsOfOtherApplicationsRemain) {
  const objc::AutoreleasePool pool;
  PlainPhone phone;
  const auto file = phone.folder() / "icon.png";
  ASSERT_EQ(drawing::writePng(drawing::Canvas({2, 2}, 1).surface(), file), std::nullopt);
  NSString* unknown = "org.example.none"_ns;
  const auto iconOf = [](int number) {
    return springboard::iconOf(NSString::stringWithUTF8String(("org.example." + std::to_string(number)).c_str()));
  };
  for (int number = 0; number < 300; ++number)
    ASSERT_TRUE(springboard::setIcon("org.example." + std::to_string(number), file));
  ASSERT_TRUE(springboard::setIcon("com.apple.mobilemail", file));
  EXPECT_EQ(iconOf(99), springboard::iconOf(unknown));
  EXPECT_NE(iconOf(100), springboard::iconOf(unknown));
  EXPECT_NE(iconOf(299), springboard::iconOf(unknown));
  EXPECT_NE(springboard::iconOf("com.apple.mobilemail"_ns), springboard::iconOf(unknown));
}

TEST(BoundedMemory, OnlyTheLatestValuesRemain) {
  runner::RecentValues<int> values(1000);
  for (std::size_t number = 1; number <= 5000; ++number) values.store(number, static_cast<int>(number) * 2);
  EXPECT_EQ(values.size(), 1000U);
  EXPECT_EQ(values.find(4000), std::nullopt);
  EXPECT_EQ(values.find(4001), 8002);
  EXPECT_EQ(values.find(5000), 10000);
  EXPECT_EQ(values.find(5001), std::nullopt);
  values.store(1, 5);
  EXPECT_EQ(values.find(1), std::nullopt);
}

TEST(BoundedMemory, ValuesCanBeStoredInAnyOrder) {
  runner::RecentValues<int> values(10);
  values.store(3, 30);
  values.store(1, 10);
  EXPECT_EQ(values.find(1), 10);
  EXPECT_EQ(values.find(2), std::nullopt);
  EXPECT_EQ(values.find(3), 30);
}

}  // namespace
