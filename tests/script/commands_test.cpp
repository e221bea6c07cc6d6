// Tests of script commands that succeed, and of the two errors of the contacts command.
#include <fstream>

#include "simulator/base/event_log.hpp"
#include "simulator/contacts/address_book.hpp"
#include "simulator/drawing/image.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "tests/support/plain_phone.hpp"

namespace {

using test::Json;
using test::PlainPhone;

TEST(Commands, PresentedControllersAreNumberedFromOne) {
  PlainPhone phone;
  EXPECT_EQ(phone.present(), 1);
  EXPECT_EQ(phone.present(), 2);
}

TEST(Commands, PresentAcceptsEveryField) {
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

TEST(Commands, PresentAcceptsAMessageOfTenMegabytes) {
  PlainPhone phone;
  const Json answer = phone.answerLine(R"({"do":"present","section":"a.b","title":"t","message":")" +
                                       std::string(10'000'000, 'w') + "\"}");
  EXPECT_TRUE(answer.at("ok").get<bool>()) << answer;
}

TEST(Commands, WaitAdvancesTheClockExactly) {
  PlainPhone phone({.time = 1584178860.0});
  const double before = foundation::unixTimeNow();
  phone.wait(12.5);
  EXPECT_DOUBLE_EQ(foundation::unixTimeNow(), before + 12.5);
}

TEST(Commands, ClockStartsAtTheConfiguredTime) {
  PlainPhone phone({.locale = "de_DE", .time = 1584178860.0});
  const Json windows = phone.run("tree").at("windows");
  EXPECT_FALSE(PlainPhone::find(windows, "text", "09:41").is_null());
}

TEST(Commands, LogReturnsEachEventOnce) {
  PlainPhone phone;
  base::recordEvent("test", {{"value", 1}});
  EXPECT_EQ(phone.log(), Json::array({{{"event", "test"}, {"value", 1}}}));
  EXPECT_EQ(phone.log(), Json::array());
}

TEST(Commands, TreeListsAllWindowsBackToFront) {
  PlainPhone phone;
  phone.present();
  const Json windows = phone.run("tree").at("windows");
  ASSERT_EQ(windows.size(), 3U);
  EXPECT_EQ(windows[0].at("class"), "UIWindow");
  EXPECT_EQ(windows[1].at("class"), "UIStatusBarWindow");
  EXPECT_EQ(windows[2].at("class"), "SBNotificationBannerWindow");
}

TEST(Commands, TreeOfAControllerStartsAtItsView) {
  PlainPhone phone;
  const Json windows = phone.run("tree", {{"controller", phone.present()}}).at("windows");
  ASSERT_EQ(windows.size(), 1U);
  EXPECT_EQ(windows[0].at("class"), "NCNotificationViewControllerView");
}

TEST(Commands, ScreenshotHasTheScreensPixelSize) {
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
  EXPECT_NE(again.value("error", "").find("the filmstrip has no frames"), std::string::npos);
}

TEST(Commands, FilmstripKeepsItsFramesIfItCannotBeWritten) {
  PlainPhone phone;
  phone.run("frame", {{"height", 100}});
  const Json failed = phone.answer({{"do", "filmstrip"}, {"path", (phone.folder() / "missing/a.png").string()}});
  EXPECT_FALSE(failed.at("ok").get<bool>());
  EXPECT_EQ(phone.run("frame", {{"height", 100}}).at("frames"), 2);
  phone.run("filmstrip", {{"path", (phone.folder() / "a.png").string()}});
  EXPECT_EQ(drawing::loadImage(phone.folder() / "a.png")->pixelWidth(), 375 + 10 + 375);
}

TEST(Commands, FilmstripIsLimitedToOnePicture) {
  PlainPhone phone;
  const auto answer = [&phone] { return phone.answer({{"do", "frame"}, {"scale", 8}, {"height", 1}}); };
  for (int frame = 1; frame <= 6; ++frame) ASSERT_TRUE(answer().at("ok").get<bool>()) << frame;
  const Json refused = answer();
  EXPECT_FALSE(refused.at("ok").get<bool>());
  EXPECT_NE(refused.at("error").get<std::string>().find("too large"), std::string::npos);
  // A frame of another size still fits.
  EXPECT_EQ(phone.run("frame", {{"scale", 1}, {"height", 1}}).at("frames"), 7);
}

TEST(Commands, ScreenshotsAtTheSameTimePointAreIdentical) {
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

TEST(Commands, SettingsAndHooksAreEmptyWithoutTheLibrary) {
  PlainPhone phone;
  EXPECT_EQ(phone.run("settings").at("settings"), Json::object());
  EXPECT_EQ(phone.run("hooks").at("rows"), Json::array());
}

TEST(Commands, StateReportsOnlyPlatformValuesWithoutTheLibrary) {
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

TEST(Commands, SetSucceedsWithoutTheLibrary) {
  PlainPhone phone;
  for (const Json& value : {Json(true), Json(3), Json(2.5), Json("text"), Json({1, 2}), Json(nullptr)})
    phone.run("set", {{"key", "timeToDismiss"}, {"value", value}});
}

TEST(Commands, AppearanceChangesTheColorsOnScreen) {
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

TEST(Commands, ContactsLoadsAVcardFile) {
  PlainPhone phone;
  std::ofstream(phone.folder() / "people.vcf") << "BEGIN:VCARD\nVERSION:3.0\nN:Weber;Anna\nEND:VCARD\n";
  phone.run("contacts", {{"path", (phone.folder() / "people.vcf").string()}});
  EXPECT_EQ(contacts::people()->front().givenName, "Anna");
}

TEST(Commands, ContactsRejectsOtherFiles) {
  PlainPhone phone;
  std::ofstream(phone.folder() / "people.csv") << "Weber,Anna\n";
  for (const char* name : {"people.csv", "missing"}) {
    const Json answer = phone.answer({{"do", "contacts"}, {"path", (phone.folder() / name).string()}});
    EXPECT_FALSE(answer.at("ok").get<bool>()) << name;
    EXPECT_NE(answer.at("error").get<std::string>().find(name), std::string::npos) << answer;
  }
}

}  // namespace
