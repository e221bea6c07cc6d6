// Two things that happen to a banner at once. Whatever they are, it leaves the screen, is dismissed once, and nothing
// of it stays.
#include <gtest/gtest.h>

#include <vector>

#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::command;
using test::containerOf;
using test::Json;
using test::Phone;

class Overlap : public testing::Test {
 protected:
  int present(const Json& fields = Json::object()) {
    Json all = {{"title", "Anna"}, {"message", "Hello"}};
    all.update(fields);
    const objc::AutoreleasePool pool;
    const int controller = phone.present(all);
    held.push_back({objc::Weak<BannerController>(test::controllerOf(controller).get()),
                    objc::Weak<BrimContainer>(containerOf(controller))});
    return controller;
  }

  Json state(int controller) { return phone.state(controller); }
  void drag(double distance, const char* end = "release") {
    phone.run({{"do", "drag"}, {"by", {0, distance}}, {"end", end}, {"steps", 4}});
  }
  bool isEditing(int controller) {
    const objc::AutoreleasePool pool;
    return containerOf(controller)->reply()->isFirstResponder();
  }

  // Lets the banners go; what has a reason to stay is sent away by the lock screen.
  void TearDown() override {
    phone.wait(20);
    phone.run({{"do", "lock"}});
    phone.wait(20);
    std::vector<int> dismissals(held.size(), 0);
    for (const Json& event : phone.log())
      if (event.at("event") == "dismiss") ++dismissals.at(event.at("controller").get<std::size_t>() - 1);
    for (std::size_t index = 0; index < held.size(); ++index) {
      const int controller = static_cast<int>(index) + 1;
      EXPECT_EQ(dismissals[index], 1) << "controller " << controller;
      EXPECT_FALSE(state(controller).at("brim"));
      EXPECT_TRUE(state(controller).at("dismissed"));
      EXPECT_EQ(held[index].controller.lock(), nullptr) << "controller " << controller;
      EXPECT_EQ(held[index].banner.lock(), nullptr) << "banner of controller " << controller;
    }
    EXPECT_TRUE(BrimContainer::DismissNotification());
  }

  Phone phone{test::Setup{}};

 private:
  struct Held {
    objc::Weak<BannerController> controller;
    objc::Weak<BrimContainer> banner;
  };
  std::vector<Held> held;
};

TEST_F(Overlap, TimerDuringADrag) {
  const int controller = present();
  phone.wait(4.9);
  drag(-12, "hold");
  phone.wait(0.2);
  EXPECT_TRUE(state(controller).at("isDismissing"));
  drag(100);
  EXPECT_TRUE(state(controller).at("isDismissing"));
  phone.wait(0.72);
  EXPECT_TRUE(state(controller).at("dismissed"));
}

TEST_F(Overlap, TimerDuringADragThatHasOpenedTheBanner) {
  const int controller = present();
  phone.wait(4.9);
  drag(300, "hold");
  phone.wait(0.2);
  EXPECT_FALSE(state(controller).at("isDismissing"));
  drag(1);
  EXPECT_TRUE(state(controller).at("expanded"));
}

TEST_F(Overlap, ReplacementDuringTheExpansion) {
  const int older = present();
  phone.wait(1);
  drag(30);
  phone.wait(0.05);
  const int newer = present({{"title", "Bert"}});
  phone.wait(0.45);
  EXPECT_FALSE(state(older).at("isDismissing"));
  phone.wait(0.1);
  EXPECT_TRUE(state(older).at("isDismissing"));
  phone.wait(1);
  EXPECT_FALSE(state(older).at("brim"));
  // The newer one came while the older had to stay, and is empty.
  EXPECT_FALSE(state(newer).at("brim"));
}

TEST_F(Overlap, LockDuringTheDismissal) {
  const int controller = present();
  phone.wait(1);
  command({{"command", "dismiss"}});
  phone.wait(0.3);
  phone.run({{"do", "lock"}});
  EXPECT_FALSE(state(controller).at("brim"));
  EXPECT_TRUE(state(controller).at("dismissed"));
}

TEST_F(Overlap, TapDuringTheReply) {
  const int controller = present();
  phone.wait(1);
  drag(200);
  phone.wait(1);
  ASSERT_TRUE(isEditing(controller));
  phone.run({{"do", "type"}, {"text", "Half a sent"}});
  phone.run({{"do", "tap"}, {"label", "Anna"}});
  EXPECT_TRUE(state(controller).at("isDismissing"));
  EXPECT_FALSE(isEditing(controller));
}

TEST_F(Overlap, SecondBannerWhileTheFirstWaitsToGo) {
  const int first = present({{"title", "One"}});
  phone.wait(1);
  present({{"title", "Two"}});
  phone.wait(0.25);
  const int third = present({{"title", "Three"}});
  phone.wait(2);
  EXPECT_FALSE(state(first).at("brim"));
  EXPECT_TRUE(state(third).at("brim"));
}

TEST_F(Overlap, ThreeBannersInOneTurn) {
  const int first = present({{"title", "One"}, {"message", "1\n2\n3"}});
  const int second = present({{"title", "Two"}});
  const int third = present({{"title", "Three"}});
  phone.wait(1.3);
  EXPECT_FALSE(state(first).at("brim"));
  EXPECT_FALSE(state(second).at("brim"));
  EXPECT_TRUE(state(third).at("brim"));
}

TEST_F(Overlap, UpdateAfterTheDismissal) {
  const int controller = present({{"dismissAutomatically", false}});
  phone.wait(1);
  command({{"command", "dismiss"}});
  phone.wait(0.72);
  command({{"command", "updateReply"}, {"header", "Anna"}, {"body", "Too late"}});
  EXPECT_FALSE(state(controller).at("brim"));
}

TEST_F(Overlap, UpdateDuringTheDismissal) {
  const int controller = present({{"dismissAutomatically", false}});
  phone.wait(1);
  command({{"command", "dismiss"}});
  phone.wait(0.3);
  command({{"command", "updateReply"}, {"header", "Anna"}, {"body", "Just in time"}});
  EXPECT_EQ(phone.view(controller, "bodyLabel").at("text"), "Hello\nJust in time");
  phone.wait(0.5);
  EXPECT_FALSE(state(controller).at("brim"));
}

TEST_F(Overlap, AppearanceChangeDuringTheDismissal) {
  const int controller = present();
  phone.wait(1);
  command({{"command", "dismiss"}});
  phone.wait(0.3);
  phone.run({{"do", "appearance"}, {"style", "dark"}});
  phone.wait(0.45);
  EXPECT_FALSE(state(controller).at("brim"));
}

TEST_F(Overlap, AppearanceChangeDuringTheExpansion) {
  const int controller = present();
  phone.wait(1);
  drag(30);
  phone.wait(0.05);
  phone.run({{"do", "appearance"}, {"style", "dark"}});
  phone.wait(1);
  EXPECT_TRUE(state(controller).at("expanded"));
  EXPECT_EQ(phone.view(controller, "headerLabel").at("color"), Json({1.0, 1.0, 1.0, 1.0}));
}

// The preferences may change in the middle of an attachment: the banner has some of each, and lives on.
TEST_F(Overlap, SettingsRewrittenWhileAttaching) {
  const std::vector<std::pair<const char*, Json>> settings = {
      {"tinyBanner", true}, {"maxLineCount", -1}, {"appSize", 0}, {"showButtons", true}, {"timeToDismiss", 0}};
  for (const auto& [key, value] : settings) {
    present();
    phone.set(key, value);
    phone.wait(0);
  }
  phone.wait(0.01);
  drag(30);
}

TEST_F(Overlap, SettingThatMakesTheBannerTinyDuringTheDismissal) {
  const int controller = present({{"message", "1\n2"}});
  phone.wait(1);
  command({{"command", "dismiss"}});
  phone.wait(0.1);
  phone.set("tinyBanner", true);
  phone.wait(0.63);
  EXPECT_TRUE(state(controller).at("brim"));
  phone.wait(0.02);
  EXPECT_FALSE(state(controller).at("brim"));
}

TEST_F(Overlap, ReplyWhileTheNewerBannerWaits) {
  const int older = present();
  phone.wait(1);
  drag(200);
  phone.wait(1);
  ASSERT_TRUE(isEditing(older));
  present({{"title", "Bert"}});
  phone.run({{"do", "type"}, {"text", "Yes"}});
  phone.run({{"do", "key"}, {"name", "return"}});
  phone.wait(2);
  EXPECT_FALSE(state(older).at("brim"));
}

TEST_F(Overlap, HomeButtonDuringTheReply) {
  const int controller = present();
  phone.wait(1);
  drag(200);
  phone.wait(1);
  phone.run({{"do", "type"}, {"text", "Unsent"}});
  phone.run({{"do", "press"}, {"type", 101}, {"force", 0}});
  EXPECT_FALSE(state(controller).at("brim"));
  EXPECT_NE(phone.refusal({{"do", "type"}, {"text", "more"}}).find("no view has the keyboard focus"),
            std::string::npos);
}

TEST_F(Overlap, GrabberTwice) {
  const int controller = present({{"dismissAutomatically", false}});
  phone.wait(1);
  phone.run({{"do", "grabber"}});
  phone.wait(0.3);
  phone.run({{"do", "grabber"}});
  phone.wait(0.5);
  EXPECT_TRUE(state(controller).at("dismissed"));
}

TEST_F(Overlap, SendAndDragInOneTurn) {
  const int controller = present();
  phone.wait(1);
  drag(200);
  phone.wait(1);
  phone.run({{"do", "type"}, {"text", "Yes"}});
  drag(-12, "hold");
  phone.run({{"do", "key"}, {"name", "return"}});
  drag(-100);
  phone.wait(1);
  EXPECT_TRUE(state(controller).at("dismissed"));
}

// The older one leaves in the middle of the newer one's way out, and takes what it had in common with it along.
TEST_F(Overlap, ReplacementThatGoesAtOnce) {
  phone.set("timeToDismiss", 0);
  const int older = present({{"dismissAutomatically", false}});
  drag(164);
  phone.run({{"do", "grabber"}});
  const int newer = present();
  phone.wait(20);
  EXPECT_TRUE(state(older).at("dismissed"));
  EXPECT_TRUE(state(newer).at("dismissed"));
}

}  // namespace
