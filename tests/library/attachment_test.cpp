#include <gtest/gtest.h>

#include <functional>
#include <regex>

#include "platform/nc_notification_view.hpp"
#include "platform/ui_gesture_recognizer.hpp"
#include "simulator/drawing/canvas.hpp"
#include "simulator/drawing/image.hpp"
#include "simulator/uikit/view_record.hpp"
#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"

namespace {

using test::Json;
using test::Phone;

Phone phoneWith(std::map<std::string, Json> settings, const std::function<void(host::Options&)>& choose = nullptr) {
  test::Setup setup;
  setup.settings = std::move(settings);
  if (choose) choose(setup.options);
  return Phone(setup);
}

std::function<void(host::Options&)> version(const char* system) {
  return [system](host::Options& options) { options.systemVersion = system; };
}

std::string shown(Phone& phone, int controller, const char* label) {
  const Json view = phone.view(controller, label);
  return view.is_null() ? "(none)" : view.value("text", "");
}

std::vector<Json> postsNamed(const Json& events, const std::string& command) {
  std::vector<Json> found;
  for (const Json& event : test::eventsOf(events, "post")) {
    if (event.at("name") == "BrimNotification" && event.at("userInfo").at("command") == command) found.push_back(event);
  }
  return found;
}

TEST(Attachment, PlatformContentGivesWayToTheBanner) {
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

TEST_P(Texts, ComeFromTheFirstFieldThatSaysSomething) {
  Phone phone = phoneWith({});
  const int controller = phone.present(GetParam().fields);
  EXPECT_EQ(shown(phone, controller, "headerLabel"), GetParam().header);
  EXPECT_EQ(shown(phone, controller, "subHeaderLabel"), GetParam().subHeader);
  EXPECT_EQ(shown(phone, controller, "bodyLabel"), GetParam().body);
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

TEST(Attachment, SummaryIsNotReadBefore12) {
  Phone phone = phoneWith({}, version("11.4"));
  const int controller = phone.present({{"title", "T"}, {"summary", "Sum"}});
  EXPECT_EQ(shown(phone, controller, "bodyLabel"), "");
}

TEST(Attachment, SummaryIsReadFrom12On) {
  Phone phone = phoneWith({}, version("12.0"));
  const int controller = phone.present({{"title", "T"}, {"summary", "Sum"}});
  EXPECT_EQ(shown(phone, controller, "bodyLabel"), "Sum");
}

TEST(Attachment, GivesTheControllerEightLowerCaseLetters) {
  Phone phone = phoneWith({});
  const int controller = phone.present();
  const std::string identifier = phone.state(controller).at("identifier");
  EXPECT_TRUE(std::regex_match(identifier, std::regex("[a-z]{8}"))) << identifier;
}

TEST(Attachment, AnnouncesItselfOnceInALaterTurn) {
  Phone phone = phoneWith({});
  phone.log();
  const int controller = phone.present();
  phone.wait(0.1);
  const auto posts = postsNamed(phone.log(), "isExternallyDismissed");
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

TEST(Attachment, BannerThatMustStayIsNotCovered) {
  Phone phone = phoneWith({});
  const int staying = phone.present({{"title", "One"}, {"dismissAutomatically", false}});
  EXPECT_FALSE(phone.state(staying).at("dismissNotification"));
  const int second = phone.present({{"title", "Two"}});
  EXPECT_FALSE(phone.state(second).at("brim"));
  EXPECT_TRUE(test::firstNode(phone.windows(second), "class", "NCNotificationShortLookView").is_null());
  EXPECT_TRUE(phone.state(staying).at("brim"));
}

// Takes the controller's view out of its window and puts it back.
void moveViewAgain(int number) {
  const auto controller = test::controllerOf(number);
  const auto view = objc::retain(controller->view());
  const auto around = objc::retain(view->superview());
  view->removeFromSuperview();
  around->addSubview(view);
}

TEST(Attachment, ControllerWithoutBannerTriesAgainAsTheSame) {
  Phone phone = phoneWith({});
  phone.present({{"title", "One"}, {"dismissAutomatically", false}});
  const int waiting = phone.present({{"title", "Two"}});
  phone.wait(0.1);
  phone.log();
  const Json identifier = phone.state(waiting).at("identifier");
  moveViewAgain(waiting);
  phone.wait(0.1);
  EXPECT_EQ(phone.state(waiting).at("identifier"), identifier);
  EXPECT_TRUE(postsNamed(phone.log(), "isExternallyDismissed").empty());
}

TEST(Attachment, TakesThePlatformsRecognizersAway) {
  Phone phone = phoneWith({});
  const int staying = phone.present({{"title", "One"}, {"dismissAutomatically", false}});
  const int waiting = phone.present({{"title", "Two"}});
  auto* view = reinterpret_cast<NCNotificationViewControllerView*>(test::controllerOf(waiting)->view());
  const auto content = objc::retain(view->contentView());
  const auto target = objc::make<NSObject>();
  const SEL action = objc::selector<"description">();
  for (UIView* each : {static_cast<UIView*>(view), static_cast<UIView*>(content.get())})
    for (int count = 0; count < 2; ++count)
      each->addGestureRecognizer(UITapGestureRecognizer::withTarget(target, action));

  phone.run({{"do", "dismiss"}, {"controller", staying}});
  BrimContainer::setDismissNotification(true);
  moveViewAgain(waiting);
  ASSERT_TRUE(phone.state(waiting).at("brim"));
  EXPECT_EQ(view->gestureRecognizers()->count(), 0u);
  EXPECT_EQ(content->gestureRecognizers()->count(), 0u);
  EXPECT_EQ(test::containerOf(waiting)->gestureRecognizers()->count(), 2u);
}

TEST(Attachment, RequestWithoutOptionsDismissesItself) {
  Phone phone = phoneWith({});
  const int controller = phone.present({{"dismissAutomatically", nullptr}});
  EXPECT_TRUE(phone.state(controller).at("dismissNotification"));
}

struct ModeCase {
  const char* system;
  host::StartAppearance appearance;
  int setting;
  std::array<double, 4> text;
};

class ColourMode : public testing::TestWithParam<ModeCase> {};

TEST_P(ColourMode, FollowsSettingVersionAndAppearance) {
  Phone phone = phoneWith({{"containerColor", GetParam().setting}}, [](host::Options& options) {
    options.systemVersion = GetParam().system;
    options.appearance = GetParam().appearance;
  });
  const int controller = phone.present({{"title", "T"}});
  EXPECT_EQ(phone.view(controller, "headerLabel").at("color"), Json(GetParam().text));
}

constexpr std::array<double, 4> white = {1, 1, 1, 1};
constexpr std::array<double, 4> black = {0, 0, 0, 1};
constexpr std::array<double, 4> grey = {0.7, 0.7, 0.7, 1};

INSTANTIATE_TEST_SUITE_P(Modes, ColourMode,
                         testing::Values(ModeCase{"12.4", host::StartAppearance::Light, 0, black},
                                         ModeCase{"12.4", host::StartAppearance::Light, 1, white},
                                         ModeCase{"12.4", host::StartAppearance::Light, 3, grey},
                                         ModeCase{"13.0", host::StartAppearance::Light, 0, black},
                                         ModeCase{"13.0", host::StartAppearance::Dark, 0, white},
                                         ModeCase{"13.5", host::StartAppearance::Dark, 2, black},
                                         ModeCase{"13.5", host::StartAppearance::Light, 1, white},
                                         ModeCase{"13.5", host::StartAppearance::Light, 3, grey}));

TEST(FixedColourMode, OverridesTheControllersAppearance) {
  Phone phone = phoneWith({{"containerColor", 3}});
  const int dark = phone.present({{"title", "T"}});
  EXPECT_EQ(test::controllerOf(dark)->traitCollection()->userInterfaceStyle(), UIUserInterfaceStyle::Dark);
  phone.run({{"do", "lock"}});
  phone.run({{"do", "appearance"}, {"style", "dark"}});
  phone.set("containerColor", 2);
  const int light = phone.present({{"title", "T"}});
  EXPECT_EQ(test::controllerOf(light)->traitCollection()->userInterfaceStyle(), UIUserInterfaceStyle::Light);
}

TEST(ColourFollowUp, FadesToTheNewAppearance) {
  Phone phone = phoneWith({});
  const int controller = phone.present({{"title", "T"}});
  phone.wait(1);
  phone.run({{"do", "appearance"}, {"style", "dark"}});
  phone.wait(0.8);
  EXPECT_EQ(phone.view(controller, "headerLabel").at("color"), Json(white));
  EXPECT_EQ(phone.banner(controller).at("background"), Json({0, 0, 0, 0.3}));
}

TEST(ColourFollowUp, FadesForFourFifthsOfASecond) {
  Phone phone = phoneWith({});
  const int controller = phone.present({{"title", "T"}});
  phone.wait(1);
  const auto red = [&] { return uikit::record(test::containerOf(controller)).layer.background.shown().red; };
  EXPECT_EQ(red(), 1);
  phone.run({{"do", "appearance"}, {"style", "dark"}});
  EXPECT_EQ(red(), 1);
  phone.wait(0.799);
  EXPECT_GT(red(), 0);
  phone.wait(0.001);
  EXPECT_EQ(red(), 0);
}

TEST(ColourFollowUp, LeavesAFixedModeAlone) {
  Phone phone = phoneWith({{"containerColor", 2}});
  const int controller = phone.present({{"title", "T"}});
  phone.run({{"do", "appearance"}, {"style", "dark"}});
  phone.wait(1);
  EXPECT_EQ(phone.view(controller, "headerLabel").at("color"), Json(black));
}

TEST(ColourFollowUp, DoesNotExistBefore13) {
  Phone phone = phoneWith({}, version("12.4"));
  const int controller = phone.present({{"title", "T"}});
  phone.run({{"do", "appearance"}, {"style", "dark"}});
  phone.wait(1);
  EXPECT_EQ(phone.view(controller, "headerLabel").at("color"), Json(black));
}

TEST(Attachment, ApplicationWithoutIconShowsTheNotificationsOwn) {
  Phone phone = phoneWith({});
  const std::string icon = (phone.root() / "icon.png").string();
  drawing::Canvas canvas({8, 8}, 1);
  canvas.clear({0, 0.5, 1, 1});
  ASSERT_FALSE(drawing::writePng(*canvas.snapshot(), icon).has_value());
  const int unknown = phone.present({{"section", "org.example.unknown"}, {"title", "T"}, {"icon", icon}});
  EXPECT_EQ(phone.view(unknown, "_appIV").at("image"), icon);
}

TEST(Attachment, AlarmHasSnoozeAndStop) {
  Phone phone = phoneWith({});
  const Json snooze = {{"key", "snooze"}, {"identifier", "MTAlarmSnoozeAction"}, {"title", "Snooze"}};
  const int controller = phone.present(
      {{"section", "com.apple.mobiletimer"}, {"title", "Alarm"}, {"close", true}, {"actions", Json::array({snooze})}});
  EXPECT_FALSE(phone.view(controller, "_snoozeButton").is_null());
  EXPECT_FALSE(phone.view(controller, "_stopAlarmButton").is_null());
  EXPECT_TRUE(phone.view(controller, "_closeButton").is_null());
  EXPECT_TRUE(phone.view(controller, "reply").is_null());
}

TEST(Attachment, AlarmCannotBeAnswered) {
  Phone phone = phoneWith({});
  const Json reply = {{"key", "reply"}, {"identifier", "reply"}, {"title", "Reply"}, {"textInput", true}};
  const int alarm = phone.present({{"section", "com.apple.mobiletimer"}, {"title", "Alarm"}, {"actions", {reply}}});
  EXPECT_TRUE(test::containerOf(alarm)->isAlarm());
  EXPECT_FALSE(test::containerOf(alarm)->canReply());
}

TEST(Attachment, BannerThatSaysLittleIsTinyWhereThatIsWanted) {
  Phone phone = phoneWith({{"tinyBannerNoText", true}});
  const auto isTiny = [&phone](const Json& notification) {
    return objc::send<bool, "tinyBanner">(test::containerOf(phone.present(notification)));
  };
  EXPECT_TRUE(isTiny({{"title", "T"}}));
  EXPECT_TRUE(isTiny({{"message", "M"}}));
  EXPECT_TRUE(isTiny({{"title", ""}, {"message", "M"}}));
  EXPECT_FALSE(isTiny({{"title", "T"}, {"message", "M"}}));
}

TEST(Attachment, WithoutBrimThePlatformsBannerStays) {
  Phone phone = phoneWith({}, [](host::Options& options) { options.library = host::LibraryUse::Absent; });
  const int controller = phone.present({{"title", "Anna"}});
  EXPECT_TRUE(phone.banner(controller).is_null());
  EXPECT_FALSE(test::firstNode(phone.windows(controller), "class", "NCNotificationShortLookView").is_null());
  EXPECT_FALSE(phone.state(controller).at("brim"));
}

}  // namespace
