// Tests of the window of a live phone, on a virtual display.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "tests/window/window_phone.hpp"

namespace {

using test::eventually;
using test::WindowPhone;
using namespace std::chrono_literals;

constexpr CGPoint banner = {188, 70};
// A tap on the wallpaper, which is an error while the finger is on the screen.
const nlohmann::json tapElsewhere = {{"do", "tap"}, {"at", {10, 700}}};

TEST(Window, ShowsThePixelsOfTheScreen) {
  const WindowPhone phone;
  EXPECT_TRUE(eventually([&] { return phone.showsScreen(); }));
  phone.showBanner();
  EXPECT_TRUE(eventually([&] { return phone.showsScreen(); }));
}

TEST(Window, ShowsAllPixelsOfAScreenWithoutRoundedCorners) {
  const WindowPhone phone("iphone-8");
  EXPECT_TRUE(eventually([&] { return phone.showsScreen(); }));
}

TEST(Window, UsesAllPixelsOfADenseDisplay) {
  setenv("GDK_SCALE", "2", 1);
  const WindowPhone phone;
  EXPECT_TRUE(eventually([&] { return phone.showsScreen(); }));
  const int controller = phone.showBanner();
  EXPECT_TRUE(eventually([&] { return phone.showsScreen(); }));
  phone.pressAndDrag(banner, {0, -60});
  phone.release();
  EXPECT_TRUE(eventually([&] { return phone.state(controller)["dismissed"] == true; }));
  EXPECT_TRUE(eventually([&] { return phone.showsScreen(); }));
}

TEST(Window, HasATitleAClassAndIcons) {
  const WindowPhone phone("iphone-se");
  const std::string root = phone.folder.path() / "root";
  EXPECT_EQ(phone.display.findWindow("Brim – iPhone SE – " + root), phone.window);
  EXPECT_EQ(phone.display.classOf(phone.window), "Brim");
  EXPECT_TRUE(phone.display.hasIcon(phone.window, 32));
  EXPECT_TRUE(phone.display.hasIcon(phone.window, 128));
}

TEST(Window, BezelCoversTheCornersOfTheScreen) {
  const WindowPhone phone;
  ASSERT_TRUE(eventually([&] { return phone.showsScreen(); }));
  const phone_display::WindowLayout layout = phone.layout();
  const auto pixels = phone.display.pixelsOf(phone.window);
  const auto pixel = [&](int x, int y) {
    return pixels[static_cast<std::size_t>((layout.screen.y + y) * layout.width + layout.screen.x + x)];
  };
  const auto bezel = pixel(layout.screen.width / 2, -4);
  EXPECT_NE(pixel(layout.screen.width / 2, 0), bezel);
  EXPECT_EQ(pixel(0, 0), bezel);
  EXPECT_EQ(pixel(layout.screen.width - 1, layout.screen.height - 1), bezel);
}

TEST(Window, ShowsTheScreenSharplyInEachSize) {
  const WindowPhone phone;
  for (const test::WindowSize& size : {test::WindowSize{1200, 640}, {420, 1250}, {1500, 1280}}) {
    phone.display.resize(phone.window, size);
    ASSERT_TRUE(eventually([&] { return phone.display.sizeOf(phone.window) == size; }));
    EXPECT_TRUE(eventually([&] { return phone.showsScreen(); })) << size.width << "x" << size.height;
  }
}

TEST(Window, MouseDragsABannerOffTheScreen) {
  const WindowPhone phone;
  const int controller = phone.showBanner();
  ASSERT_EQ(phone.state(controller)["dismissed"], false);
  phone.pressAndDrag(banner, {0, -60});
  phone.release();
  EXPECT_TRUE(eventually([&] { return phone.state(controller)["dismissed"] == true; }));
  EXPECT_TRUE(eventually([&] { return phone.showsScreen(); }));
}

// Notifications arrive without a pause. The number of commands that the phone executes between a press and its effect
// does not depend on the speed of the machine.
TEST(Window, PressDoesNotWaitForABurstOfNotifications) {
  constexpr int notifications = 400;
  constexpr int maxAnswersBeforeEffect = 4;
  const WindowPhone phone;
  const nlohmann::json present = {{"do", "present"}, {"section", "com.apple.MobileSMS"}, {"title", "Anna"}};
  std::string commands;
  for (int index = 0; index < notifications; ++index) commands += present.dump() + "\n" + tapElsewhere.dump() + "\n";
  test::CommandConnection connection(phone.folder.path() / "root");
  connection.send(commands);
  for (int answer = 0; answer < 4; ++answer) ASSERT_EQ(connection.receive()["ok"], true);
  phone.press({188, 500});
  while (connection.hasReceived()) connection.receive();
  int answers = 0;
  // While a finger is on the screen, notifications are presented, but taps are errors.
  while (connection.receive()["ok"] == true) ++answers;
  EXPECT_LE(answers, maxAnswersBeforeEffect);
  phone.release();
}

// Each motion of the finger is compared with the commands that the phone executes before the banner follows. Half of
// them present notifications, and the other half report the position of the banner.
TEST(Window, DragFollowsTheFingerDuringABurstOfNotifications) {
  constexpr int notifications = 200;
  constexpr int notificationsBetweenMotions = 5;
  constexpr auto interval = 10ms;
  // The number of notifications that arrive within a frame, rounded up, and the one that is being presented.
  constexpr std::size_t maxNotificationsBeforeEffect = 3;
  const WindowPhone phone;
  const int controller = phone.showBanner();
  // The finger has already moved far enough for a drag.
  constexpr double beginning = 15;
  const CGPoint start = phone.pixel({banner.x, banner.y - beginning});
  phone.pressAndDrag(banner, {0, -beginning});
  ASSERT_TRUE(eventually([&] { return phone.tell(tapElsewhere)["ok"] == false; }));

  // The first report is the position after the beginning of the drag.
  phone.tell({{"do", "wait"}, {"seconds", 0.3}});
  const nlohmann::json present = {{"do", "present"}, {"section", "com.apple.MobileSMS"}, {"title", "Anna"}};
  const nlohmann::json state = {{"do", "state"}, {"controller", controller}};
  test::CommandConnection connection(phone.folder.path() / "root");
  std::vector<double> offsets;
  const auto receive = [&] {
    EXPECT_EQ(connection.receive()["ok"], true);
    offsets.push_back(connection.receive()["offset"]);
  };
  struct Motion {
    std::size_t reports;  // the number of reports before the motion
    double distance;
  };
  std::vector<Motion> motions;
  for (int index = 0; index < notifications; ++index) {
    connection.send(present.dump() + "\n" + state.dump() + "\n");
    while (connection.hasReceived()) receive();
    if (index % notificationsBetweenMotions == 0) {
      const auto pixels = static_cast<int>(motions.size());
      motions.push_back({offsets.size(), pixels / phone.layout().scale});
      phone.display.movePointer(static_cast<int>(start.x), static_cast<int>(start.y) - pixels);
    }
    std::this_thread::sleep_for(interval);
  }
  while (offsets.size() < notifications) receive();
  phone.release();
  for (const Motion& motion : motions) {
    const double expected = offsets.front() - motion.distance;
    const auto first = offsets.begin() + static_cast<std::ptrdiff_t>(motion.reports);
    const auto followed = std::find_if(first, offsets.end(), [&](double offset) { return offset <= expected + 0.5; });
    EXPECT_LE(static_cast<std::size_t>(followed - first), maxNotificationsBeforeEffect) << motion.distance;
  }
}

TEST(Window, FingerStaysDownOutsideOfTheWindow) {
  const WindowPhone phone;
  const int controller = phone.showBanner();
  const double outside = phone.display.sizeOf(phone.window).width + 40;
  phone.pressAndDrag(banner, {outside, 0});
  EXPECT_EQ(phone.tell(tapElsewhere)["ok"], false);
  phone.release();
  EXPECT_TRUE(eventually([&] { return phone.tell(tapElsewhere)["ok"] == true; }));
  EXPECT_EQ(phone.state(controller)["dismissed"], false);
}

// If the press ended normally, it would be a tap on the banner.
TEST(Window, TouchIsCanceledWhenTheWindowIsHidden) {
  const WindowPhone phone;
  const int controller = phone.showBanner();
  phone.pressAndDrag(banner, {0, 0});
  ASSERT_TRUE(eventually([&] { return phone.tell(tapElsewhere)["ok"] == false; }));
  phone.display.hide(phone.window);
  EXPECT_TRUE(eventually([&] { return phone.tell(tapElsewhere)["ok"] == true; }));
  phone.tell({{"do", "wait"}, {"seconds", 1}});
  EXPECT_EQ(phone.state(controller)["dismissed"], false);
}

TEST(Window, ClickOpensABanner) {
  const WindowPhone phone;
  const int controller = phone.showBanner();
  phone.pressAndDrag(banner, {0, 0});
  phone.release();
  EXPECT_TRUE(eventually([&] { return phone.state(controller)["dismissed"] == true; }));
}

bool isLocked(const WindowPhone& phone) {
  return phone.tell({{"do", "tree"}}).dump().find("NCNotificationListView") != std::string::npos;
}

constexpr CGPoint homeButton = {187.5, 713};

TEST(Window, HomeButtonDismissesABanner) {
  const WindowPhone phone("iphone-8");
  const int controller = phone.showBanner();
  phone.pressAndDrag(homeButton, {0, 0});
  phone.release();
  EXPECT_TRUE(eventually([&] { return phone.state(controller)["dismissed"] == true; }));
}

TEST(Window, SideButtonLocksThePhoneAndHomeButtonUnlocksIt) {
  const WindowPhone phone("iphone-8");
  ASSERT_FALSE(isLocked(phone));
  phone.pressAndDrag({396, 130}, {0, 0});
  phone.release();
  ASSERT_TRUE(eventually([&] { return isLocked(phone); }));
  // A press that leaves the button has no effect.
  phone.pressAndDrag(homeButton, {80, 0});
  phone.release();
  phone.tell({{"do", "wait"}, {"seconds", 0.5}});
  EXPECT_TRUE(isLocked(phone));
  phone.pressAndDrag(homeButton, {0, 0});
  phone.release();
  EXPECT_TRUE(eventually([&] { return !isLocked(phone); }));
}

TEST(Window, DragContinuesWhileTheWindowIsResized) {
  const WindowPhone phone;
  const int controller = phone.showBanner();
  phone.pressAndDrag(banner, {0, 0});
  ASSERT_TRUE(eventually([&] { return phone.tell(tapElsewhere)["ok"] == false; }));
  const test::WindowSize size = {420, 1000};
  phone.display.resize(phone.window, size);
  ASSERT_TRUE(eventually([&] { return phone.display.sizeOf(phone.window) == size && phone.showsScreen(); }));
  EXPECT_EQ(phone.tell(tapElsewhere)["ok"], false);
  phone.pressAndDrag(banner, {0, -60});
  phone.release();
  EXPECT_TRUE(eventually([&] { return phone.state(controller)["dismissed"] == true; }));
  EXPECT_EQ(phone.tell(tapElsewhere)["ok"], true);
}

// Expands the banner with the mouse, which opens its reply field.
void openReplyField(const WindowPhone& phone) {
  const int controller = phone.showBanner();
  phone.pressAndDrag(banner, {0, 120});
  phone.release();
  ASSERT_TRUE(eventually([&] { return phone.state(controller)["expanded"] == true; }));
  phone.tell({{"do", "wait"}, {"seconds", 1}});
  phone.display.focus(phone.window);
}

TEST(Window, KeyboardTypesAReply) {
  const WindowPhone phone;
  openReplyField(phone);
  phone.display.send("type --delay 20 'At one!!'");
  phone.display.send("key BackSpace");
  EXPECT_TRUE(eventually([&] { return phone.showsText("At one!"); }));
  EXPECT_TRUE(eventually([&] { return phone.showsScreen(); }));
}

TEST(Window, DeadKeyComposesACharacter) {
  const WindowPhone phone;
  openReplyField(phone);
  phone.display.send("key --delay 50 dead_diaeresis u");
  EXPECT_TRUE(eventually([&] { return phone.showsText("\u00fc"); }));
}

TEST(Window, ControlVPastesTheClipboard) {
  const WindowPhone phone;
  openReplyField(phone);
  EXPECT_TRUE(phone.display.offerText("Caf\u00e9 \u4f60", [&] { phone.display.send("key ctrl+v"); }));
  EXPECT_TRUE(eventually([&] { return phone.showsText("Caf\u00e9 \u4f60"); }));
}

TEST(Window, BannerDoesNotTakeTheFocus) {
  const WindowPhone phone;
  const auto other = phone.display.openOtherWindow();
  phone.display.focus(other);
  phone.showBanner();
  ASSERT_TRUE(eventually([&] { return phone.showsScreen(); }));
  EXPECT_EQ(phone.display.focusedWindow(), other);
}

TEST(Window, ClosingItEndsThePhoneAndTheMessagesApp) {
  WindowPhone phone;
  openReplyField(phone);
  phone.display.send("type --delay 20 Yes");
  phone.display.send("key Return");
  ASSERT_TRUE(eventually([&] { return phone.isRunning("messages"); }));
  phone.display.requestClose(phone.window);
  EXPECT_TRUE(eventually([&] { return phone.process.hasEnded(); }, 10s));
  EXPECT_TRUE(phone.process.hasSucceeded());
  EXPECT_TRUE(eventually([&] { return !phone.isRunning("messages"); }, 10s));
}

TEST(Window, ClosingItEndsAWaitingCommand) {
  WindowPhone phone;
  nlohmann::json answer;
  std::thread client([&] { answer = phone.tell({{"do", "wait"}, {"seconds", 600}}); });
  std::this_thread::sleep_for(200ms);
  phone.display.requestClose(phone.window);
  EXPECT_TRUE(eventually([&] { return phone.process.hasEnded(); }, 10s));
  EXPECT_TRUE(phone.process.hasSucceeded());
  client.join();
  EXPECT_EQ(answer["ok"], true);
}

TEST(Window, LostDisplayEndsThePhoneWithAnError) {
  WindowPhone phone;
  phone.showBanner();
  phone.display.kill();
  ASSERT_TRUE(eventually([&] { return phone.process.hasEnded(); }, 10s));
  EXPECT_EQ(phone.process.exitStatus(), 1);
  EXPECT_FALSE(std::filesystem::exists(phone.folder.path() / "root/var/run/control.socket"));
}

TEST(Window, LostDisplayDuringADragEndsThePhoneAndTheMessagesApp) {
  WindowPhone phone;
  test::expectEndOfDrag(phone, [&] { phone.display.kill(); });
}

TEST(Window, TouchScreenDragsABannerOffTheScreen) {
  using test::TouchChange;
  const WindowPhone phone("iphone-x", std::nullopt, test::InputDevices::PointerAndTouchScreen);
  const int controller = phone.showBanner();
  const test::TouchScreen& screen = phone.display.touchScreen();
  const auto touch = [&](std::uint32_t finger, TouchChange change, CGPoint point) {
    const CGPoint pixel = phone.pixel(point);
    screen.change(finger, change, pixel.x, pixel.y);
  };
  touch(1, TouchChange::Begin, banner);
  ASSERT_TRUE(eventually([&] { return phone.tell(tapElsewhere)["ok"] == false; }));
  // The phone ignores a second finger.
  touch(2, TouchChange::Begin, {188, 400});
  touch(2, TouchChange::End, {188, 400});
  for (int step = 1; step <= 10; ++step) touch(1, TouchChange::Update, {banner.x, banner.y - 6 * step});
  EXPECT_EQ(phone.tell(tapElsewhere)["ok"], false);
  touch(1, TouchChange::End, {banner.x, banner.y - 60});
  EXPECT_TRUE(eventually([&] { return phone.state(controller)["dismissed"] == true; }));
  EXPECT_EQ(phone.tell(tapElsewhere)["ok"], true);
}

std::vector<std::string> pressedVolumeButtons(const WindowPhone& phone) {
  std::vector<std::string> pressed;
  const nlohmann::json answer = phone.tell({{"do", "log"}});
  for (const nlohmann::json& entry : answer["events"])
    if (entry["event"] == "volume") pressed.push_back(entry["button"]);
  return pressed;
}

TEST(Window, VolumeButtonsAreKeysAndPartsOfTheBody) {
  const WindowPhone phone;
  ASSERT_TRUE(eventually([&] { return phone.showsScreen(); }));
  phone.display.focus(phone.window);
  std::vector<std::string> pressed;
  const auto arePressed = [&](const std::vector<std::string>& expected) {
    return eventually([&] {
      for (const std::string& button : pressedVolumeButtons(phone)) pressed.push_back(button);
      return pressed == expected;
    });
  };
  phone.display.send("key Prior Next");
  EXPECT_TRUE(arePressed({"up", "down"})) << testing::PrintToString(pressed);
  phone.press({-20, 170});
  phone.release();
  EXPECT_TRUE(arePressed({"up", "down", "up"})) << testing::PrintToString(pressed);
}

TEST(Window, DoesNotWakeUpWhileThePhoneIsIdle) {
  const WindowPhone phone;
  phone.showBanner();
  ASSERT_TRUE(eventually([&] { return phone.showsScreen(); }));
  // The minute on the phone's clocks can change once during the measurements.
  long fewest = 1000;
  for (int measurement = 0; measurement < 2; ++measurement) {
    const long before = phone.sleepCount();
    std::this_thread::sleep_for(3s);
    fewest = std::min(fewest, phone.sleepCount() - before);
  }
  EXPECT_LE(fewest, 2);
}

TEST(Window, RequiresADisplay) {
  const test::TemporaryFolder folder;
  const std::string command = "env -u DISPLAY -u WAYLAND_DISPLAY XDG_RUNTIME_DIR=" + folder.path().string() + " " +
                              SPRINGBOARD + " --live --window --root " + (folder.path() / "root").string() + " 2>&1";
  FILE* const output = popen(command.c_str(), "r");
  ASSERT_NE(output, nullptr);
  std::string text;
  for (int character = 0; (character = fgetc(output)) != EOF;) text += static_cast<char>(character);
  const int status = pclose(output);
  EXPECT_EQ(WEXITSTATUS(status), 2) << text;
  EXPECT_NE(text.find("no display is available"), std::string::npos) << text;
}

}  // namespace
