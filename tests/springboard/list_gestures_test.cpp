// Tests of the gestures on the notification list: scrolling, unfolding a stack, and the buttons behind a cell.
#include "simulator/springboard/platter/scrolling.hpp"
#include "tests/springboard/long_look_fixture.hpp"

namespace test {

namespace {

class ListGestures : public LongLook {
 protected:
  explicit ListGestures(runner::Options options = {}) : LongLook(std::move(options)) {}

  void presentAndLock(int conversations) {
    for (int number = 0; number < conversations; ++number)
      phone.present({{"thread", std::to_string(number)}, {"message", "Message " + std::to_string(number)}});
    lock();
  }
  void presentStack() {
    for (const char* message : {"One", "Two", "Three"}) phone.present({{"thread", "anna"}, {"message", message}});
    phone.present({{"thread", "ben"}, {"message", "Other"}, {"identifier", "other"}});
    lock();
  }
  void lock() {
    phone.wait(8);
    phone.run("lock");
    phone.log();
  }
  void drag(double x, double y, double dx, double dy) {
    phone.run("drag", {{"at", {x, y}}, {"by", {dx, dy}}});
    phone.wait(1);
  }
  void tap(const char* label) {
    phone.run("tap", {{"label", label}});
    phone.wait(1);
  }
  void swipe(const char* label, double dx) {
    const Json frame = PlainPhone::find(windows(), "text", label).at("frame");
    drag(187, frame[1].get<double>() + 2, dx, 0);
  }
  bool shows(const char* text) { return !PlainPhone::find(windows(), "text", text).is_null(); }
  double topOf(const char* text) { return top(PlainPhone::find(windows(), "text", text)); }
  std::size_t cellCount() { return view("NCNotificationListView").at("children").size(); }
};

TEST_F(ListGestures, ScrollsToTheLastNotification) {
  presentAndLock(20);
  EXPECT_FALSE(shows("Message 0"));
  const double first = topOf("Message 19");
  drag(187, 600, 0, -100);
  EXPECT_DOUBLE_EQ(topOf("Message 19"), first - 100);
  for (int count = 0; count < 10; ++count) drag(187, 700, 0, -500);
  ASSERT_TRUE(shows("Message 0"));
  const double last = topOf("Message 0");
  EXPECT_GT(last, 600);
  EXPECT_LT(last, 778);
  drag(187, 700, 0, -500);
  EXPECT_DOUBLE_EQ(topOf("Message 0"), last);
}

TEST_F(ListGestures, ScrollsBackToTheTop) {
  presentAndLock(20);
  const double first = topOf("Message 19");
  drag(187, 600, 0, -100);
  drag(187, 400, 0, 300);
  EXPECT_DOUBLE_EQ(topOf("Message 19"), first);
}

TEST_F(ListGestures, MovesWithResistanceBeyondTheTop) {
  presentAndLock(1);
  const double first = topOf("Message 0");
  phone.run("drag", {{"at", {187, 400}}, {"by", {0, 200}}, {"end", "hold"}});
  EXPECT_GT(topOf("Message 0"), first + 50);
  EXPECT_LT(topOf("Message 0"), first + 150);
}

TEST_F(ListGestures, DeceleratesAfterAFlick) {
  presentAndLock(20);
  const double first = topOf("Message 19");
  phone.run("drag", {{"at", {187, 600}}, {"by", {0, -20}}, {"end", "hold"}});
  phone.wait(0.05);
  phone.run("drag", {{"by", {0, -20}}, {"steps", 1}});
  EXPECT_DOUBLE_EQ(topOf("Message 19"), first - 40);
  phone.wait(0.2);
  const double moving = topOf("Message 19");
  EXPECT_LT(moving, first - 50);
  phone.wait(5);
  EXPECT_LT(topOf("Message 19"), moving - 20);
  EXPECT_GT(topOf("Message 19"), first - 40 - 400);
}

TEST_F(ListGestures, ScrollsBackWhenTheListBecomesShorter) {
  presentAndLock(20);
  for (int count = 0; count < 10; ++count) drag(187, 700, 0, -500);
  phone.run("withdraw");
  phone.present({{"message", "Only"}});
  phone.wait(8);
  EXPECT_DOUBLE_EQ(top(view("NCNotificationListView")), 44 + 40 + 90 + 26 + 28);
}

TEST_F(ListGestures, TapUnfoldsAStackAndFoldsItAgain) {
  presentStack();
  EXPECT_EQ(cellCount(), 2U);
  tap("Three");
  for (const char* text : {"One", "Two", "Three", "Show less"}) EXPECT_TRUE(shows(text)) << text;
  EXPECT_EQ(cellCount(), 5U);
  EXPECT_TRUE(executedActions().empty());
  tap("Show less");
  EXPECT_FALSE(shows("Two"));
  EXPECT_EQ(cellCount(), 2U);
}

TEST_F(ListGestures, ScrollsBackWhenAStackIsFolded) {
  for (int number = 0; number < 12; ++number) phone.present({{"thread", "anna"}, {"message", std::to_string(number)}});
  lock();
  const double first = topOf("11");
  tap("11");
  drag(187, 700, 0, -120);
  EXPECT_LT(topOf("11"), first);
  tap("Show less");
  EXPECT_DOUBLE_EQ(topOf("11"), first);
}

TEST_F(ListGestures, DoesNotMoveBehindALongLook) {
  phone.present({{"message", "Hi"}});
  lock();
  swipe("Hi", -120);
  tap("View");
  ASSERT_TRUE(isOpen());
  const double listTop = top(view("NCNotificationListView"));
  phone.run("drag", {{"at", {187, 700}}, {"by", {-200, 0}}});
  phone.run("drag", {{"at", {187, 700}}, {"by", {0, -200}}, {"end", "hold"}});
  EXPECT_DOUBLE_EQ(top(view("NCNotificationListView")), listTop);
  phone.run("drag", {{"by", {0, 0}}});
  phone.run("tap", {{"at", {187, 780}}});
  phone.wait(1);
  tap("Hi");
  EXPECT_EQ(executedActions().size(), 1U);
}

TEST_F(ListGestures, TapOnANotificationOfAnUnfoldedStackOpensIt) {
  presentStack();
  tap("Three");
  tap("Two");
  EXPECT_EQ(executedActions(), Identifiers{"com.apple.UNNotificationDefaultActionIdentifier"});
  EXPECT_EQ(listedCount(), 3U);
}

TEST_F(ListGestures, StackOfOneNotificationIsFolded) {
  presentStack();
  tap("Three");
  phone.run("withdraw", {{"identifier", "other"}});
  swipe("Three", -350);
  swipe("Two", -350);
  EXPECT_FALSE(shows("Show less"));
  EXPECT_EQ(cellCount(), 1U);
}

TEST_F(ListGestures, SwipeShowsButtons) {
  presentStack();
  EXPECT_FALSE(shows("Clear"));
  swipe("Other", -120);
  EXPECT_TRUE(shows("Clear"));
  tap("Clear");
  EXPECT_FALSE(shows("Other"));
  EXPECT_EQ(executedActions(), Identifiers{"com.apple.UNNotificationDismissActionIdentifier"});
  EXPECT_EQ(listedCount(), 3U);
}

TEST_F(ListGestures, ClearsAWholeStack) {
  presentStack();
  swipe("Three", -120);
  tap("Clear All");
  EXPECT_EQ(executedActions().size(), 3U);
  EXPECT_EQ(listedCount(), 1U);
}

TEST_F(ListGestures, LongSwipeClears) {
  presentStack();
  swipe("Other", -350);
  EXPECT_EQ(listedCount(), 3U);
}

TEST_F(ListGestures, ClearsANotificationWithoutAClearAction) {
  phone.present({{"message", "Plain"}, {"clear", false}});
  lock();
  swipe("Plain", -350);
  EXPECT_TRUE(executedActions().empty());
  EXPECT_EQ(listedCount(), 0U);
}

TEST_F(ListGestures, ShortSwipeHasNoEffect) {
  presentStack();
  const double left = PlainPhone::find(windows(), "text", "Other").at("frame")[0];
  swipe("Other", -40);
  EXPECT_DOUBLE_EQ(PlainPhone::find(windows(), "text", "Other").at("frame")[0], left);
  tap("Other");
  EXPECT_EQ(executedActions().size(), 1U);
}

TEST_F(ListGestures, TapBesideTheButtonsHidesThem) {
  presentStack();
  const double left = PlainPhone::find(windows(), "text", "Other").at("frame")[0];
  swipe("Other", -120);
  EXPECT_LT(PlainPhone::find(windows(), "text", "Other").at("frame")[0], left - 100);
  tap("Three");
  EXPECT_DOUBLE_EQ(PlainPhone::find(windows(), "text", "Other").at("frame")[0], left);
  EXPECT_EQ(cellCount(), 2U);
  EXPECT_TRUE(executedActions().empty());
}

TEST_F(ListGestures, ViewOpensTheLongLook) {
  phone.present({{"message", "Hi"},
                 {"actions", {{{"key", "a"}, {"identifier", "answer"}, {"title", "Reply"}, {"textInput", true}}}}});
  lock();
  swipe("Hi", -120);
  tap("View");
  ASSERT_TRUE(isOpen());
  tap("Reply");
  phone.run("type", {{"text", "Yes"}});
  phone.run("key", {{"name", "return"}});
  phone.wait(1);
  EXPECT_EQ(executedActions(), Identifiers{"answer"});
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(listedCount(), 0U);
}

class RightToLeftListGestures : public ListGestures {
 protected:
  RightToLeftListGestures() : ListGestures({.locale = "ar_EG"}) {}
};

TEST_F(RightToLeftListGestures, SwipeToTheRightShowsButtons) {
  presentStack();
  swipe("Other", -120);
  swipe("Other", 120);
  tap("Clear");
  EXPECT_EQ(listedCount(), 3U);
}

TEST(Scrolling, ResistsBeyondItsLimits) {
  using springboard::resistedOffset;
  EXPECT_DOUBLE_EQ(resistedOffset(50, 100, 800), 50);
  EXPECT_LT(resistedOffset(-100, 100, 800), 0);
  EXPECT_GT(resistedOffset(-100, 100, 800), -60);
  EXPECT_GT(resistedOffset(200, 100, 800), 100);
  EXPECT_LT(resistedOffset(1e9, 100, 800), 900.001);
}

TEST(Scrolling, DeceleratesToAStop) {
  using springboard::decelerationDistance;
  EXPECT_DOUBLE_EQ(decelerationDistance(100, 0), 0);
  EXPECT_NEAR(decelerationDistance(100, 0.001), 0.1, 0.001);
  EXPECT_NEAR(decelerationDistance(100, 100), 50, 0.001);
  EXPECT_NEAR(decelerationDistance(-100, 100), -50, 0.001);
}

}  // namespace

}  // namespace test
