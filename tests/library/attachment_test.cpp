#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <regex>

#include "library/utilities/parent_view_controller.hpp"
#include "platform/nc_notification_view.hpp"
#include "platform/ui_gesture_recognizer.hpp"
#include "platform/ui_window.hpp"
#include "simulator/drawing/canvas.hpp"
#include "simulator/drawing/image.hpp"
#include "simulator/springboard/banner/notification_view_controller.hpp"
#include "simulator/uikit/images/application_icons.hpp"
#include "simulator/uikit/images/image_class.hpp"
#include "tests/library/controllers.hpp"
#include "tests/library/laid_out_banner.hpp"
#include "tests/library/phone.hpp"
#include "tests/library/platform_methods.hpp"

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

// A command of the phone ends after the run-loop iteration, so this test presents the banner directly.
TEST(Attachment, IsAnnouncedInALaterRunLoopIteration) {
  Phone phone = phoneWith({});
  const auto request = objc::retain(test::controllerOf(phone.present())->notificationRequest());
  phone.wait(20);
  phone.log();
  springboard::presentBanner(springboard::makeShortLookController(request));
  EXPECT_TRUE(postsOfCommand(phone.log(), "isExternallyDismissed").empty());
  EXPECT_EQ(postsOfCommand(phone.log(), "isExternallyDismissed").size(), 1u);
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

TEST(Attachment, ViewThatAlreadyHasItsBannerIsNotAttachedAgain) {
  Phone phone = phoneWith({});
  const int controller = phone.present({{"title", "One"}});
  phone.wait(1);
  const auto banner = objc::retain(test::containerOf(controller));
  phone.log();
  reattachView(controller);
  EXPECT_EQ(test::containerOf(controller), banner.get());
  EXPECT_EQ(banner->gestureRecognizers()->count(), 2u);
  const auto banners =
      test::nodes(phone.windows(controller), [](const Json& node) { return node.at("class") == "BrimContainer"; });
  EXPECT_EQ(banners.size(), 1u);
  EXPECT_TRUE(phone.log().empty());
}

void setFlags(BannerController* controller) {
  controller->setHasDismissed(true);
  controller->setAutoDimissTriggered(true);
  controller->setIsDismissing(true);
  controller->setWasExternallyDismissed(true);
  controller->setDismissCalled(true);
}

std::array<bool, 5> flagsOf(const BannerController* controller) {
  return {controller->hasDismissed(), controller->autoDimissTriggered(), controller->isDismissing(),
          controller->wasExternallyDismissed(), controller->dismissCalled()};
}

TEST(Attachment, ClearsTheDismissalFlags) {
  Phone phone = phoneWith({});
  const int persistent = phone.present({{"title", "One"}, {"dismissAutomatically", false}});
  const int waiting = phone.present({{"title", "Two"}});
  const auto controller = test::controllerOf(waiting);
  setFlags(controller);
  reattachView(waiting);
  EXPECT_EQ(flagsOf(controller), (std::array<bool, 5>{true, true, true, true, true})) << "no banner was attached";
  phone.run({{"do", "dismiss"}, {"controller", persistent}});
  BrimContainer::setDismissNotification(true);
  reattachView(waiting);
  EXPECT_EQ(flagsOf(controller), (std::array<bool, 5>{}));
}

TEST(Attachment, LoadingTheViewClearsTheDismissalFlags) {
  Phone phone = phoneWith({});
  const auto made = springboard::makeShortLookController(test::controllerOf(phone.present())->notificationRequest());
  auto* controller = reinterpret_cast<BannerController*>(made.get());
  setFlags(controller);
  controller->view();
  EXPECT_EQ(flagsOf(controller), (std::array<bool, 5>{}));
}

TEST(Attachment, ViewOfAnotherResponderHasNoBanner) {
  Phone phone = phoneWith({});
  phone.present({{"title", "One"}});
  const auto view = UIView::withFrame<NCNotificationViewControllerView>({{0, 0}, {100, 100}});
  UIWindow* window = test::containerOf(1)->window();
  window->addSubview(view);
  EXPECT_EQ(parentViewController(view), (objc::send<UIResponder*, "nextResponder">(window)));
  EXPECT_EQ(view->subviews()->count(), 0u);
}

// The text that the content of each notification returns as its message.
NSMutableString* changingMessage;

NSString* messageOf(objc::Original<NSString*(NCNotificationShortLookView*)>, NCNotificationShortLookView*) {
  return changingMessage;
}

// UTF-8 cannot represent an unpaired surrogate. For such a text, the phone returns nil, but Foundation on Linux returns
// data.
NSData* dataUsingEncoding(objc::Original<NSData*(NSString*, NSStringEncoding)> original, NSString* self,
                          NSStringEncoding encoding) {
  return encoding == NSStringEncoding::UTF8 && self->isEqualToString(changingMessage) ? nullptr
                                                                                      : original(self, encoding);
}

TEST(Attachment, TextsAreCopies) {
  Phone phone = phoneWith({{"hide_unless_expanded", true}});
  const objc::AutoreleasePool pool;
  const auto message = objc::retain(NSMutableString::stringWithCapacity(8));
  message->appendString("Grüße 😀"_ns);
  // An unpaired surrogate and a zero are valid in UTF-16 only.
  constexpr std::uint16_t units[] = {0xd83d, 0, 'x'};
  message->appendString(objc::adopt(
      objc::send<NSString*, "initWithCharacters:length:">(objc::send<id, "alloc">(objc::lookUpClass<"NSString">()),
                                                          static_cast<const std::uint16_t*>(units), NSUInteger{3})));
  const auto before = objc::adopt(objc::send<NSString*, "copy">(message.get()));
  changingMessage = message;
  test::replaceMethod<"secondaryText", &messageOf>(NCNotificationShortLookView::classObject());
  test::replaceMethod<"dataUsingEncoding:", &dataUsingEncoding>(NSString::classObject());
  const int controller = phone.present({{"title", "One"}});
  message->appendString(" changed"_ns);
  const auto* body = test::instanceVariable<NSString>(test::containerOf(controller), "_originalBody");
  EXPECT_TRUE(body->isEqualToString(before));
  changingMessage = nullptr;
}

TEST(Attachment, EmptySummaryIsAnEmptyBody) {
  Phone phone = phoneWith({});
  const int controller = phone.present({{"title", "One"}, {"summary", ""}, {"dismissAutomatically", false}});
  const auto* body = test::instanceVariable<NSString>(test::containerOf(controller), "_body");
  ASSERT_NE(body, nullptr);
  EXPECT_EQ(body->length(), 0u);
  phone.run({{"do", "update"}, {"controller", controller}, {"title", "One"}, {"message", "More"}});
  EXPECT_EQ(shownText(phone, controller, "bodyLabel"), "\nMore");
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

constexpr const char* application = "org.example.application";

std::shared_ptr<const drawing::Image> makeIcon(const char* name) {
  drawing::Canvas canvas({8, 8}, 1);
  canvas.clear({0, 0.5, 1, 1});
  return canvas.snapshot()->named(name);
}

// The icons of each notification.
NSArray* notificationIcons;

NSArray* iconsOfNotification(objc::Original<NSArray*(NCNotificationShortLookView*)>, NCNotificationShortLookView*) {
  return notificationIcons;
}

// The tests set the icons of the application and of the notification.
class BannerIcon : public testing::Test {
 protected:
  BannerIcon() {
    test::replaceMethod<"icons", &iconsOfNotification>(NCNotificationShortLookView::classObject());
    icons_->addObject(uikit::makeImage(makeIcon("first")));
    icons_->addObject(uikit::makeImage(makeIcon("second")));
    notificationIcons = icons_;
  }
  ~BannerIcon() override { notificationIcons = nullptr; }

  // The name of the icon in a banner of the application. "(none)" if the banner has no icon.
  std::string shownIcon() {
    return phone_.view(phone_.present({{"section", application}}), "_appIV").value("image", "(none)");
  }

 private:
  Phone phone_;
  objc::Ref<NSMutableArray> icons_ = objc::retain(NSMutableArray::array());
};

TEST_F(BannerIcon, IsTheApplicationsIconInTheFirstAvailableFormat) {
  for (const auto& [format, name] : {std::pair{0, "format 0"}, {2, "format 2"}, {8, "format 8"}}) {
    uikit::setApplicationIcon(application, format, makeIcon(name));
    EXPECT_EQ(shownIcon(), name);
  }
}

TEST_F(BannerIcon, IsTheFirstIconOfTheNotificationIfTheApplicationHasNoneOfTheFormats) {
  uikit::setApplicationIcon(application, 1, makeIcon("format 1"));
  EXPECT_EQ(shownIcon(), "first");
}

TEST_F(BannerIcon, IsTheFirstIconOfTheNotificationInsteadOfThePlaceholder) {
  ASSERT_NE(UIImage::applicationIcon(NSString::stringWithUTF8String(application), 8), nullptr);
  EXPECT_EQ(shownIcon(), "first");
}

TEST_F(BannerIcon, IsMissingIfTheNotificationHasNone) {
  notificationIcons = NSMutableArray::array();
  EXPECT_EQ(shownIcon(), "(none)");
  notificationIcons = nullptr;
  EXPECT_EQ(shownIcon(), "(none)");
}

TEST_F(BannerIcon, IsTheIconOfTheApplicationThatResemblesThePlaceholder) {
  const auto placeholder = uikit::imageOf(UIImage::applicationIcon("org.example.other"_ns, 8));
  drawing::Canvas canvas(placeholder->size(), placeholder->scale());
  canvas.clear({0.5, 0.5, 0.5, 1});
  uikit::setApplicationIcon(application, 8, canvas.snapshot()->named("gray"));
  EXPECT_EQ(shownIcon(), "gray");
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
