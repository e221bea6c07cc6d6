#include <gtest/gtest.h>

#include <functional>
#include <regex>

#include "platform/nc_notification_view.hpp"
#include "platform/ui_gesture_recognizer.hpp"
#include "simulator/drawing/canvas.hpp"
#include "simulator/drawing/image.hpp"
#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::Json;
using test::Phone;

Phone phoneWith(std::map<std::string, Json> settings,
                const std::function<void(runner::Options&)>& configure = nullptr) {
  test::Setup setup;
  setup.settings = std::move(settings);
  if (configure) configure(setup.options);
  return Phone(setup);
}

std::function<void(runner::Options&)> onSystem(const char* system) {
  return [system](runner::Options& options) { options.systemVersion = system; };
}

std::string shownText(Phone& phone, int controller, const char* label) {
  const Json view = phone.view(controller, label);
  return view.is_null() ? "(none)" : view.value("text", "");
}

std::vector<Json> postsOfCommand(const Json& events, const std::string& command) {
  std::vector<Json> found;
  for (const Json& event : test::eventsOf(events, "post")) {
    if (event.at("name") == "BrimNotification" && event.at("userInfo").at("command") == command) found.push_back(event);
  }
  return found;
}

TEST(Attachment, DragCommandSkipsANewerControllerWithoutABanner) {
  Phone phone = phoneWith({});
  const int persistent = phone.present({{"dismissAutomatically", false}, {"message", "one\ntwo\nthree"}});
  phone.wait(6);
  phone.present();
  phone.run({{"do", "drag"}, {"by", {0, -10}}, {"end", "hold"}});
  EXPECT_EQ(phone.state(persistent).at("offset"), -80);
}

TEST(Attachment, BannerReplacesThePlatformsContent) {
  Phone phone = phoneWith({});
  const int controller = phone.present({{"title", "Anna"}, {"message", "Hello"}});
  EXPECT_FALSE(phone.banner(controller).is_null());
  EXPECT_TRUE(test::firstNode(phone.windows(controller), "class", "NCNotificationShortLookView").is_null());
  EXPECT_TRUE(phone.state(controller).at("brim"));
}

struct TextCase {
  Json fields;
  const char* header;
  const char* subHeader;
  const char* body;
};

class Texts : public testing::TestWithParam<TextCase> {};

TEST_P(Texts, ComeFromTheFirstNonEmptyField) {
  Phone phone = phoneWith({});
  const int controller = phone.present(GetParam().fields);
  EXPECT_EQ(shownText(phone, controller, "headerLabel"), GetParam().header);
  EXPECT_EQ(shownText(phone, controller, "subHeaderLabel"), GetParam().subHeader);
  EXPECT_EQ(shownText(phone, controller, "bodyLabel"), GetParam().body);
}

INSTANTIATE_TEST_SUITE_P(
    Fields, Texts,
    testing::Values(TextCase{{{"title", "T"}, {"subtitle", "S"}, {"message", "M"}}, "T", "S", "M"},
                    TextCase{{{"title", "T"}, {"message", "M"}}, "T", "(none)", "M"},
                    TextCase{{{"title", "T"}, {"subtitle", ""}, {"message", "M"}}, "T", "(none)", "M"},
                    TextCase{{{"title", ""}, {"subtitle", "S"}, {"message", "M"}}, "S", "(none)", "M"},
                    TextCase{{{"subtitle", "S"}, {"message", "M"}}, "S", "(none)", "M"},
                    TextCase{{{"message", "M"}}, "", "(none)", "M"},
                    TextCase{{{"title", "T"}, {"summary", "Sum"}}, "T", "(none)", "Sum"},
                    TextCase{{{"title", "T"}, {"message", ""}, {"summary", "Sum"}}, "T", "(none)", "Sum"},
                    TextCase{{{"title", "T"}, {"message", "M"}, {"summary", "Sum"}}, "T", "(none)", "M"}));

TEST(Attachment, SummaryIsIgnoredBeforeSystem12) {
  Phone phone = phoneWith({}, onSystem("11.4"));
  const int controller = phone.present({{"title", "T"}, {"summary", "Sum"}});
  EXPECT_EQ(shownText(phone, controller, "bodyLabel"), "");
}

TEST(Attachment, SummaryIsUsedSinceSystem12) {
  Phone phone = phoneWith({}, onSystem("12.0"));
  const int controller = phone.present({{"title", "T"}, {"summary", "Sum"}});
  EXPECT_EQ(shownText(phone, controller, "bodyLabel"), "Sum");
}

TEST(Attachment, GivesTheControllerAnIdentifierOfEightLowercaseLetters) {
  Phone phone = phoneWith({});
  const int controller = phone.present();
  const std::string identifier = phone.state(controller).at("identifier");
  EXPECT_TRUE(std::regex_match(identifier, std::regex("[a-z]{8}"))) << identifier;
}

TEST(Attachment, IsAnnouncedOnceAsynchronously) {
  Phone phone = phoneWith({});
  phone.log();
  const int controller = phone.present();
  phone.wait(0.1);
  const auto posts = postsOfCommand(phone.log(), "isExternallyDismissed");
  ASSERT_EQ(posts.size(), 1u);
  EXPECT_EQ(posts.front().at("userInfo").at("brimIdentifier"), phone.state(controller).at("identifier"));
}

TEST(Attachment, SecondBannerDismissesTheFirstHalfASecondLater) {
  Phone phone = phoneWith({});
  const int first = phone.present({{"title", "One"}});
  phone.wait(1);
  const int second = phone.present({{"title", "Two"}});
  phone.wait(0.45);
  EXPECT_FALSE(phone.state(first).at("isDismissing"));
  phone.wait(0.1);
  EXPECT_TRUE(phone.state(first).at("isDismissing"));
  phone.wait(1);
  EXPECT_FALSE(phone.state(first).at("brim"));
  EXPECT_TRUE(phone.state(second).at("brim"));
}

TEST(Attachment, PersistentBannerIsNotReplaced) {
  Phone phone = phoneWith({});
  const int persistent = phone.present({{"title", "One"}, {"dismissAutomatically", false}});
  EXPECT_FALSE(phone.state(persistent).at("dismissNotification"));
  const int second = phone.present({{"title", "Two"}});
  EXPECT_FALSE(phone.state(second).at("brim"));
  EXPECT_TRUE(test::firstNode(phone.windows(second), "class", "NCNotificationShortLookView").is_null());
  EXPECT_TRUE(phone.state(persistent).at("brim"));
}

// Removes the view of the controller from its superview and adds it again.
void reattachView(int number) {
  const auto controller = test::controllerOf(number);
  const auto view = objc::retain(controller->view());
  const auto superview = objc::retain(view->superview());
  view->removeFromSuperview();
  superview->addSubview(view);
}

TEST(Attachment, RetryKeepsTheIdentifierOfTheController) {
  Phone phone = phoneWith({});
  phone.present({{"title", "One"}, {"dismissAutomatically", false}});
  const int waiting = phone.present({{"title", "Two"}});
  phone.wait(0.1);
  phone.log();
  const Json identifier = phone.state(waiting).at("identifier");
  reattachView(waiting);
  phone.wait(0.1);
  EXPECT_EQ(phone.state(waiting).at("identifier"), identifier);
  EXPECT_TRUE(postsOfCommand(phone.log(), "isExternallyDismissed").empty());
}

TEST(Attachment, RemovesThePlatformsGestureRecognizers) {
  Phone phone = phoneWith({});
  const int persistent = phone.present({{"title", "One"}, {"dismissAutomatically", false}});
  const int waiting = phone.present({{"title", "Two"}});
  auto* view = reinterpret_cast<NCNotificationViewControllerView*>(test::controllerOf(waiting)->view());
  const auto content = objc::retain(view->contentView());
  const auto target = objc::make<NSObject>();
  const SEL action = objc::selector<"description">();
  for (UIView* each : {static_cast<UIView*>(view), static_cast<UIView*>(content.get())})
    for (int count = 0; count < 2; ++count)
      each->addGestureRecognizer(UITapGestureRecognizer::withTarget(target, action));

  phone.run({{"do", "dismiss"}, {"controller", persistent}});
  BrimContainer::setDismissNotification(true);
  reattachView(waiting);
  ASSERT_TRUE(phone.state(waiting).at("brim"));
  EXPECT_EQ(view->gestureRecognizers()->count(), 0u);
  EXPECT_EQ(content->gestureRecognizers()->count(), 0u);
  EXPECT_EQ(test::containerOf(waiting)->gestureRecognizers()->count(), 2u);
}

TEST(Attachment, RequestWithoutOptionsIsDismissedAutomatically) {
  Phone phone = phoneWith({});
  const int controller = phone.present({{"dismissAutomatically", nullptr}});
  EXPECT_TRUE(phone.state(controller).at("dismissNotification"));
}

TEST(Attachment, ApplicationWithoutIconShowsTheIconOfTheNotification) {
  Phone phone = phoneWith({});
  const std::string icon = (phone.root() / "icon.png").string();
  drawing::Canvas canvas({8, 8}, 1);
  canvas.clear({0, 0.5, 1, 1});
  ASSERT_FALSE(drawing::writePng(*canvas.snapshot(), icon).has_value());
  const int unknown = phone.present({{"section", "org.example.unknown"}, {"title", "T"}, {"icon", icon}});
  EXPECT_EQ(phone.view(unknown, "_appIV").at("image"), icon);
}

TEST(Attachment, AlarmHasSnoozeAndStopButtons) {
  Phone phone = phoneWith({});
  const Json snooze = {{"key", "snooze"}, {"identifier", "MTAlarmSnoozeAction"}, {"title", "Snooze"}};
  const int controller = phone.present(
      {{"section", "com.apple.mobiletimer"}, {"title", "Alarm"}, {"close", true}, {"actions", Json::array({snooze})}});
  EXPECT_FALSE(phone.view(controller, "_snoozeButton").is_null());
  EXPECT_FALSE(phone.view(controller, "_stopAlarmButton").is_null());
  EXPECT_TRUE(phone.view(controller, "_closeButton").is_null());
  EXPECT_TRUE(phone.view(controller, "reply").is_null());
}

TEST(Attachment, AlarmCannotBeRepliedTo) {
  Phone phone = phoneWith({});
  const Json reply = {{"key", "reply"}, {"identifier", "reply"}, {"title", "Reply"}, {"textInput", true}};
  const int alarm = phone.present({{"section", "com.apple.mobiletimer"}, {"title", "Alarm"}, {"actions", {reply}}});
  EXPECT_TRUE(test::containerOf(alarm)->isAlarm());
  EXPECT_FALSE(test::containerOf(alarm)->canReply());
}

TEST(Attachment, BannerWithoutTitleOrMessageIsTinyIfTheSettingIsOn) {
  Phone phone = phoneWith({{"tinyBannerNoText", true}});
  const auto isTiny = [&phone](const Json& notification) {
    return objc::send<bool, "tinyBanner">(test::containerOf(phone.present(notification)));
  };
  EXPECT_TRUE(isTiny({{"title", "T"}}));
  EXPECT_TRUE(isTiny({{"message", "M"}}));
  EXPECT_TRUE(isTiny({{"title", ""}, {"message", "M"}}));
  EXPECT_FALSE(isTiny({{"title", "T"}, {"message", "M"}}));
}

TEST(Attachment, WithoutBrimThePlatformsBannerRemains) {
  Phone phone = phoneWith({}, [](runner::Options& options) { options.library = process::LibraryUse::Absent; });
  const int controller = phone.present({{"title", "Anna"}});
  EXPECT_TRUE(phone.banner(controller).is_null());
  EXPECT_FALSE(test::firstNode(phone.windows(controller), "class", "NCNotificationShortLookView").is_null());
  EXPECT_FALSE(phone.state(controller).at("brim"));
}

}  // namespace
