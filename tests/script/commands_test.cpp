#include <fstream>

#include "objc/autorelease_pool.hpp"
#include "platform/ns_url_connection.hpp"
#include "simulator/contacts/address_book.hpp"
#include "simulator/drawing/image.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/host/event_log.hpp"
#include "simulator/springboard/json_objects.hpp"
#include "tests/support/loopback_server.hpp"
#include "tests/support/plain_phone.hpp"

namespace {

using test::Json;
using test::PlainPhone;

TEST(Commands, PresentAnswersNumbersFromOneOn) {
  PlainPhone phone;
  EXPECT_EQ(phone.present(), 1);
  EXPECT_EQ(phone.present(), 2);
}

TEST(Commands, PresentTakesEveryField) {
  PlainPhone phone;
  const int controller =
      phone.present({{"subtitle", "s"},
                     {"summary", "more"},
                     {"thread", "t"},
                     {"userInfo", {{"a", {1, 2.5, "x", true, nullptr, Json::object()}}}},
                     {"actions", {{{"key", "k"}, {"identifier", "i"}, {"title", "t"}, {"textInput", true}}}},
                     {"clear", false},
                     {"close", true},
                     {"silence", true},
                     {"dismissAutomatically", nullptr},
                     {"at", "2020-03-14T09:41:00Z"}});
  EXPECT_EQ(controller, 1);
}

TEST(Commands, PresentTakesABodyOfTenMegabytes) {
  PlainPhone phone;
  const Json answer = phone.answerLine(R"({"do":"present","section":"a.b","title":"t","message":")" +
                                       std::string(10'000'000, 'w') + "\"}");
  EXPECT_TRUE(answer.at("ok").get<bool>()) << answer;
}

TEST(Commands, WaitStepsTheClockExactly) {
  PlainPhone phone({.time = 1584178860.0});
  const double before = foundation::unixTimeNow();
  phone.wait(12.5);
  EXPECT_DOUBLE_EQ(foundation::unixTimeNow(), before + 12.5);
}

TEST(Commands, ClockStartsAtTheTimeThatWasChosen) {
  PlainPhone phone({.locale = "de_DE", .time = 1584178860.0});
  const Json windows = phone.run("tree").at("windows");
  EXPECT_FALSE(PlainPhone::find(windows, "text", "09:41").is_null());
}

TEST(Commands, LogIsEmptiedByReadingIt) {
  PlainPhone phone;
  host::recordEvent("test", {{"value", 1}});
  EXPECT_EQ(phone.log(), Json::array({{{"event", "test"}, {"value", 1}}}));
  EXPECT_EQ(phone.log(), Json::array());
}

TEST(Commands, AwaitIsMetByAnEventThatNoAwaitHasAnsweredFor) {
  PlainPhone phone;
  host::recordEvent("photo", Json::object());
  phone.run("await", {{"for", "photo"}, {"seconds", 0}});
  const Json again = phone.answer({{"do", "await"}, {"for", "photo"}, {"seconds", 0}});
  EXPECT_FALSE(again.at("ok").get<bool>());
}

TEST(Commands, AwaitIsMetByEachOfTheEventsThatCameTogether) {
  PlainPhone phone;
  for (int count = 0; count < 2; ++count) host::recordEvent("message", Json::object());
  for (int count = 0; count < 2; ++count) phone.run("await", {{"for", "message"}, {"seconds", 0}});
  const Json third = phone.answer({{"do", "await"}, {"for", "message"}, {"seconds", 0}});
  EXPECT_FALSE(third.at("ok").get<bool>());
}

TEST(Commands, AwaitForPhotosStartsAnewWithEachNotification) {
  PlainPhone phone;
  host::recordEvent("photo", Json::object());
  phone.present();
  const Json answer = phone.answer({{"do", "await"}, {"for", "photo"}, {"seconds", 0}});
  EXPECT_FALSE(answer.at("ok").get<bool>());
}

TEST(Commands, AwaitLetsOtherThreadsIn) {
  PlainPhone phone;
  foundation::onMainThread([] { host::recordEvent("http", Json::object()); });
  phone.run("await", {{"for", "http"}});
}

TEST(Commands, AwaitIdleEndsWhenAllIsQuiet) {
  PlainPhone phone;
  phone.run("await", {{"for", "idle"}, {"seconds", 5}});
}

TEST(Commands, TreeShowsAllWindowsBackToFront) {
  PlainPhone phone;
  phone.present();
  const Json windows = phone.run("tree").at("windows");
  ASSERT_EQ(windows.size(), 3U);
  EXPECT_EQ(windows[0].at("class"), "UIWindow");
  EXPECT_EQ(windows[1].at("class"), "UIStatusBarWindow");
  EXPECT_EQ(windows[2].at("class"), "SBNotificationBannerWindow");
}

TEST(Commands, TreeOfAControllerIsItsView) {
  PlainPhone phone;
  const Json windows = phone.run("tree", {{"controller", phone.present()}}).at("windows");
  ASSERT_EQ(windows.size(), 1U);
  EXPECT_EQ(windows[0].at("class"), "NCNotificationViewControllerView");
}

TEST(Commands, ScreenshotHasTheScreensPixels) {
  PlainPhone phone({.device = "iphone-8"});
  const auto path = phone.folder() / "a.png";
  phone.run("screenshot", {{"path", path.string()}});
  const auto picture = drawing::loadImage(path);
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(picture->pixelWidth(), 750);
  EXPECT_EQ(picture->pixelHeight(), 1334);
}

TEST(Commands, ScreenshotCanBeScaledAndCropped) {
  PlainPhone phone;
  const int controller = phone.present();
  phone.wait(1);
  const auto path = phone.folder() / "a.png";
  phone.run("screenshot", {{"path", path.string()}, {"scale", 1}, {"crop", controller}});
  const auto picture = drawing::loadImage(path);
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(picture->pixelWidth(), 359);
  EXPECT_EQ(picture->pixelHeight(), phone.view(controller, "NCNotificationShortLookView").at("frame")[3]);
}

TEST(Commands, FilmstripShowsItsFramesSideBySide) {
  PlainPhone phone;
  EXPECT_EQ(phone.run("frame", {{"height", 100}}).at("frames"), 1);
  phone.present();
  phone.wait(1);
  EXPECT_EQ(phone.run("frame", {{"height", 200}}).at("frames"), 2);
  const auto path = phone.folder() / "strip.png";
  phone.run("filmstrip", {{"path", path.string()}});
  const auto picture = drawing::loadImage(path);
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(picture->pixelWidth(), 375 + 10 + 375);
  EXPECT_EQ(picture->pixelHeight(), 200);
  const Json again = phone.answer({{"do", "filmstrip"}, {"path", path.string()}});
  EXPECT_NE(again.value("error", "").find("there are no frames"), std::string::npos);
}

TEST(Commands, ScreenshotsOfTheSameMomentAreTheSame) {
  PlainPhone phone;
  phone.present();
  const auto bytes = [&phone](const char* name) {
    const auto path = phone.folder() / name;
    phone.run("screenshot", {{"path", path.string()}, {"scale", 1}});
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  };
  phone.wait(0.15);
  const std::string sliding = bytes("a.png");
  EXPECT_EQ(bytes("b.png"), sliding);
  phone.wait(1);
  EXPECT_NE(bytes("c.png"), sliding);
}

TEST(Commands, WithoutTheLibraryThereAreNoSettingsAndNoHooks) {
  PlainPhone phone;
  EXPECT_EQ(phone.run("settings").at("settings"), Json::object());
  EXPECT_EQ(phone.run("hooks").at("rows"), Json::array());
}

TEST(Commands, StateWithoutTheLibraryTellsOnlyOfThePlatform) {
  PlainPhone phone;
  const Json state = phone.run("state", {{"controller", phone.present()}});
  EXPECT_FALSE(state.at("brim").get<bool>());
  EXPECT_FALSE(state.at("dismissed").get<bool>());
  EXPECT_TRUE(state.at("dismissNotification").get<bool>());
  EXPECT_TRUE(state.at("identifier").is_null());
  EXPECT_TRUE(state.at("height").is_null());
  for (const char* flag :
       {"hasDismissed", "autoDimissTriggered", "isDismissing", "wasExternallyDismissed", "dismissCalled", "expanded"})
    EXPECT_FALSE(state.at(flag).get<bool>()) << flag;
}

TEST(Commands, ADragThatHoldsGoesOnWithTheSameFinger) {
  PlainPhone phone;
  const int controller = phone.present({{"dismissAutomatically", false}});
  phone.wait(1);
  const auto top = [&] {
    return phone.view(controller, "NCNotificationViewControllerView").at("frame")[1].get<double>();
  };
  const double atRest = top();
  phone.run("drag", {{"by", {0, -15}}, {"end", "hold"}});
  EXPECT_LT(top(), atRest);
  phone.run("drag", {{"by", {0, 10}}, {"end", "cancel"}});
  phone.wait(1);
  EXPECT_EQ(top(), atRest);
  EXPECT_FALSE(phone.isDismissed(controller));
}

TEST(Commands, ATapWaitsForTheHeldFingerToLetGo) {
  PlainPhone phone;
  const int controller = phone.present({{"dismissAutomatically", false}});
  phone.wait(1);
  phone.run("drag", {{"by", {0, -15}}, {"end", "hold"}});
  const Json refused = phone.answer({{"do", "tap"}, {"at", {100, 600}}});
  EXPECT_NE(refused.value("error", "").find("a finger is held"), std::string::npos);
  phone.run("drag", {{"by", {0, 15}}, {"end", "cancel"}});
  phone.run("tap", {{"at", {100, 600}}});
  phone.wait(1);
  EXPECT_FALSE(phone.isDismissed(controller));
}

TEST(Commands, AHeldFingersNextDragReadsItsStartAllTheSame) {
  PlainPhone phone;
  const int controller = phone.present({{"dismissAutomatically", false}});
  phone.wait(1);
  const Json hold = {{"do", "drag"}, {"by", {0, -1}}, {"end", "hold"}, {"controller", controller}};
  phone.run(hold);
  phone.run(hold);
  Json wrong = hold;
  wrong["controller"] = 77;
  EXPECT_FALSE(phone.answer(wrong).at("ok").get<bool>());
  wrong.erase("controller");
  wrong["at"] = {5000, 5};
  EXPECT_FALSE(phone.answer(wrong).at("ok").get<bool>());
}

TEST(Commands, TapFindsWhatItReads) {
  PlainPhone phone;
  const int controller = phone.present({{"title", "Tap me"}});
  phone.wait(1);
  phone.run("tap", {{"label", "Tap me"}});
  phone.wait(1);
  EXPECT_TRUE(phone.isDismissed(controller));
}

TEST(Commands, SetIsTakenWithoutTheLibrary) {
  PlainPhone phone;
  for (const Json& value : {Json(true), Json(3), Json(2.5), Json("text"), Json({1, 2}), Json(nullptr)})
    phone.run("set", {{"key", "timeToDismiss"}, {"value", value}});
}

TEST(Commands, AppearanceSwitchesWhatTheScreenShows) {
  PlainPhone phone;
  const int controller = phone.present({{"dismissAutomatically", false}});
  phone.wait(1);
  const auto titleColor = [&] {
    return PlainPhone::find(phone.run("tree", {{"controller", controller}}).at("windows"), "text", "Anna").at("color");
  };
  EXPECT_EQ(titleColor(), Json({0.0, 0.0, 0.0, 1.0}));
  phone.run("appearance", {{"style", "dark"}});
  EXPECT_EQ(titleColor(), Json({1.0, 1.0, 1.0, 1.0}));
}

TEST(Commands, ContactsTakesAFileWithCards) {
  PlainPhone phone;
  std::ofstream(phone.folder() / "people.vcf") << "BEGIN:VCARD\nVERSION:3.0\nN:Weber;Anna\nEND:VCARD\n";
  phone.run("contacts", {{"path", (phone.folder() / "people.vcf").string()}});
  EXPECT_EQ(contacts::people()->front().givenName, "Anna");
}

TEST(Commands, ContactsRefusesOtherFiles) {
  PlainPhone phone;
  std::ofstream(phone.folder() / "people.csv") << "Weber,Anna\n";
  for (const char* name : {"people.csv", "missing"}) {
    const Json answer = phone.answer({{"do", "contacts"}, {"path", (phone.folder() / name).string()}});
    EXPECT_FALSE(answer.at("ok").get<bool>()) << name;
    EXPECT_NE(answer.at("error").get<std::string>().find(name), std::string::npos) << answer;
  }
}

// Asks a server on the phone's behalf.
void ask(const std::string& address) {
  NSURL* const url = NSURL::withString(springboard::stringOf(address));
  NSURLConnection::sendAsynchronousRequest(NSURLRequest::withURL(url), NSOperationQueue::mainQueue(), nullptr);
}

TEST(Commands, AwaitIdleWaitsForServers) {
  PlainPhone phone;
  const objc::AutoreleasePool pool;
  test::LoopbackServer server;
  server.answer("/slow", {.body = "x", .timing = test::Timing::WhenReleased});
  ask(server.address("/slow"));
  const Json early = phone.answer({{"do", "await"}, {"for", "idle"}, {"seconds", 0.5}});
  EXPECT_FALSE(early.at("ok").get<bool>());
  server.release();
  phone.run("await", {{"for", "idle"}});
  EXPECT_EQ(phone.log(), Json::array({{{"event", "http"}, {"url", server.address("/slow")}, {"status", 200}}}));
}

TEST(Commands, AwaitHttpIsMetByAnAnswerAndByNone) {
  PlainPhone phone;
  const objc::AutoreleasePool pool;
  test::LoopbackServer server;
  server.answer("/", {.status = 503});
  ask(server.address("/"));
  phone.run("await", {{"for", "http"}});
  EXPECT_EQ(phone.log().at(0).at("status"), 503);
  ask("http://" + std::string(70, 'a') + "/");
  phone.run("await", {{"for", "http"}});
  EXPECT_EQ(phone.log().at(0).at("error"), -1003);
  EXPECT_FALSE(phone.answer({{"do", "await"}, {"for", "http"}, {"seconds", 0}}).at("ok").get<bool>());
}

}  // namespace
