// Tests of the web page of a live phone. They use the page without a browser; `./brim check browser` uses it with one.
#include <cairo.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <list>
#include <memory>
#include <string>

#include "simulator/plugins/phone_display/window_layout.hpp"
#include "tests/support/child_process.hpp"
#include "tests/support/temporary_folder.hpp"
#include "tests/window/live_phone.hpp"
#include "tests/window/page_connection.hpp"

namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using test::eventually;
using test::PageConnection;
using testing::HasSubstr;
using testing::MatchesRegex;

constexpr int refused = 1008;
constexpr int tooLarge = 1009;
constexpr int goingAway = 1001;
constexpr int abnormal = 1006;

// The size of a page that shows an iphone-x at one pixel per point.
constexpr int pageWidth = 471;
constexpr int pageHeight = 908;

// A tap on the wallpaper, which is an error while the finger is on the screen.
const json tapElsewhere = {{"do", "tap"}, {"at", {10, 700}}};

std::string contentsOf(const fs::path& file) {
  std::ifstream stream(file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// A live phone that serves its page.
class PagePhone {
 public:
  explicit PagePhone(const fs::path& root, const std::string& device = "iphone-x")
      : root_(withoutOutput(root)),
        device_(*base::findDeviceProfile(device)),
        process_({"/bin/sh", "-c",
                  "exec " SPRINGBOARD " --live --browser --device " + device + " --root " + root.string() + " >" +
                      output().string() + " 2>&1"}) {
    eventually([&] { return !page().empty() || process_.hasEnded(); });
  }

  // Returns the last printed address of the page, or an empty text if there is none.
  std::string page() const {
    const std::string text = contentsOf(output());
    const std::string prefix = "the phone is displayed at ";
    const std::size_t place = text.rfind(prefix);
    const std::size_t end = text.find('\n', place);
    if (place == std::string::npos || end == std::string::npos) return "";
    return text.substr(place + prefix.size(), end - place - prefix.size());
  }
  std::string server() const { return page().substr(0, page().find('/', std::string("http://").size()) + 1); }

  json tell(const json& command) const { return test::tell(root_, command); }
  bool showsText(const std::string& text) const { return test::showsText(root_, text); }
  json state(int controller) const { return tell({{"do", "state"}, {"controller", controller}}); }

  // Presents a banner that is not dismissed automatically, and returns its controller.
  int showBanner() const {
    const json answer = tell({{"do", "present"},
                              {"section", "com.apple.MobileSMS"},
                              {"title", "Anna"},
                              {"message", "Lunch?"},
                              {"dismissAutomatically", false},
                              {"actions", {{{"key", "Reply"}, {"identifier", "reply"}, {"textInput", true}}}}});
    tell({{"do", "wait"}, {"seconds", 1}});
    return answer["controller"];
  }

  phone_display::WindowLayout layout(const PageConnection& page) const {
    return phone_display::layOut(device_, page.width(), page.height());
  }

  // Returns whether the page shows exactly the pixels of the screen, except for the rounded corners of the screen.
  bool isShownBy(const PageConnection& page) const {
    constexpr double cornerExtent = 1.6;
    const phone_display::WindowLayout place = layout(page);
    const fs::path file = root_ / "screen.png";
    tell({{"do", "screenshot"}, {"path", file}, {"scale", place.scale}});
    const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> picture(
        cairo_image_surface_create_from_png(file.c_str()), &cairo_surface_destroy);
    const int width = cairo_image_surface_get_width(picture.get());
    const int height = cairo_image_surface_get_height(picture.get());
    if (width != place.screen.width || height != place.screen.height || page.pixels().empty()) return false;
    const double corner = cornerExtent * phone_display::bodyOf(device_).screenRadius * place.scale;
    const unsigned char* const bytes = cairo_image_surface_get_data(picture.get());
    const int stride = cairo_image_surface_get_stride(picture.get());
    for (int y = 0; y < height; ++y) {
      const auto* row = reinterpret_cast<const std::uint32_t*>(bytes + static_cast<std::ptrdiff_t>(y) * stride);
      for (int x = 0; x < width; ++x) {
        if (std::min(x, width - 1 - x) < corner && std::min(y, height - 1 - y) < corner) continue;
        const int position = (place.screen.y + y) * page.width() + place.screen.x + x;
        if (page.pixels()[static_cast<std::size_t>(position)] != (row[x] | 0xFF000000)) return false;
      }
    }
    return true;
  }

  // Presses the finger at a point of the screen, and drags it in steps.
  void pressAndDrag(PageConnection& page, CGPoint from, CGPoint by) const {
    constexpr int steps = 10;
    touch(page, "began", from);
    for (int step = 1; step <= steps; ++step)
      touch(page, "moved", {from.x + by.x * step / steps, from.y + by.y * step / steps});
  }
  void touch(PageConnection& page, const char* phase, CGPoint point) const {
    const phone_display::WindowLayout place = layout(page);
    page.touch(phase, place.screen.x + point.x * place.scale, place.screen.y + point.y * place.scale);
  }

  test::ChildProcess& process() { return process_; }

 private:
  // Removes the output of an earlier phone on this root.
  static fs::path withoutOutput(const fs::path& root) {
    fs::remove(root.string() + ".output");
    return root;
  }
  fs::path output() const { return root_.string() + ".output"; }

  fs::path root_;
  const base::DeviceProfile& device_;
  test::ChildProcess process_;
};

class WebPage : public testing::Test {
 protected:
  fs::path root(const std::string& name = "root") const { return folder_.path() / name; }

  test::TemporaryFolder folder_;
};

TEST_F(WebPage, IsServedAtThePrintedAddress) {
  const PagePhone phone(root());
  EXPECT_THAT(phone.page(), MatchesRegex("http://127.0.0.1:8[01][0-9]+/[0-9a-f]+/"));
  const test::Response page = test::request(phone.page());
  EXPECT_EQ(page.status, 200U);
  EXPECT_THAT(page.body, HasSubstr("<title>Brim – iPhone X</title>"));
  EXPECT_EQ(page.headers.at("Referrer-Policy"), "no-referrer");
  EXPECT_THAT(page.headers.at("Content-Security-Policy"), HasSubstr("default-src 'none'"));
  for (const char* file : {"page.css", "page.js", "icon.png", "composer.json"}) {
    const test::Response response = test::request(phone.page() + file);
    EXPECT_EQ(response.status, 200U) << file;
    EXPECT_FALSE(response.body.empty()) << file;
  }
}

TEST_F(WebPage, RefusesRequestsWithoutTheToken) {
  const PagePhone phone(root());
  EXPECT_EQ(test::request(phone.server()).status, 403U);
  std::string wrong = phone.page();
  wrong[wrong.size() - 2] = wrong[wrong.size() - 2] == '0' ? '1' : '0';
  EXPECT_EQ(test::request(wrong).status, 403U);
  EXPECT_EQ(test::request(wrong + "page.js").status, 403U);
  EXPECT_FALSE(PageConnection(wrong).isOpen());
  EXPECT_EQ(test::request(phone.page() + "missing").status, 404U);
  EXPECT_EQ(test::request(phone.page(), {}, "POST").status, 405U);
}

TEST_F(WebPage, RefusesTheNamesOfOtherComputers) {
  const PagePhone phone(root());
  for (const char* host : {"phone.example", "phone.example:8085", "192.0.2.1:8085", "localhost.example"}) {
    EXPECT_EQ(test::request(phone.page(), {.host = host}).status, 403U) << host;
    const std::string origin = std::string("http://") + host;
    EXPECT_EQ(PageConnection(phone.page(), {.host = host, .origin = origin}).status(), 403U) << host;
  }
  EXPECT_EQ(test::request(phone.page(), {.host = "localhost:9000"}).status, 200U);
  EXPECT_EQ(test::request(phone.page(), {.host = "[::1]:9000"}).status, 200U);
}

TEST_F(WebPage, OnlyAcceptsConnectionsOfItsOwnOrigin) {
  const PagePhone phone(root());
  for (const char* origin : {"http://phone.example", "http://127.0.0.1", "http://127.0.0.1:1", "null"})
    EXPECT_EQ(PageConnection(phone.page(), {.origin = origin}).status(), 403U) << origin;
  EXPECT_FALSE(PageConnection(phone.page(), {}, "connection", "chat").isOpen());
  EXPECT_TRUE(PageConnection(phone.page()).isOpen());
  // The page is accessed through a forwarded port.
  EXPECT_TRUE(PageConnection(phone.page(), {.host = "localhost:9000", .origin = "http://localhost:9000"}).isOpen());
}

TEST_F(WebPage, HasItsOwnAddressForEachPhone) {
  const PagePhone first(root("first"));
  const PagePhone second(root("second"));
  EXPECT_NE(first.server(), second.server());
  EXPECT_TRUE(PageConnection(first.page()).isOpen());
  EXPECT_TRUE(PageConnection(second.page()).isOpen());
}

TEST_F(WebPage, TokenOfARootIsPersistentAndSecret) {
  const auto tokenOf = [](const PagePhone& phone) { return phone.page().substr(phone.server().size()); };
  const fs::path file = root() / "var/run/page.token";
  std::string token;
  {
    const PagePhone phone(root());
    token = tokenOf(phone);
  }
  struct stat status = {};
  ASSERT_EQ(stat(file.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
  EXPECT_EQ(tokenOf(PagePhone(root())), token);
  // Another user could have read the token.
  fs::permissions(file, fs::perms::group_read, fs::perm_options::add);
  EXPECT_NE(tokenOf(PagePhone(root())), token);
}

TEST_F(WebPage, ShowsThePixelsOfTheScreen) {
  const PagePhone phone(root());
  PageConnection page(phone.page());
  page.show(pageWidth, pageHeight);
  EXPECT_EQ(phone.layout(page).scale, 1);
  EXPECT_TRUE(page.until([&] { return phone.isShownBy(page); }));
  EXPECT_EQ(page.values()["device"], "iPhone X");
  phone.tell({{"do", "appearance"}, {"style", "dark"}});
  EXPECT_TRUE(page.until([&] { return phone.isShownBy(page); }));
}

TEST_F(WebPage, IsCrispOnADenseDisplay) {
  const PagePhone phone(root());
  PageConnection page(phone.page());
  page.show(3000, 2 * pageHeight);
  EXPECT_EQ(phone.layout(page).scale, 2);
  EXPECT_TRUE(page.until([&] { return phone.isShownBy(page); }));
}

TEST_F(WebPage, LimitsTheSizeOfThePicture) {
  const PagePhone phone(root(), "iphone-se");
  PageConnection page(phone.page());
  page.show(16'384, 16'384);
  EXPECT_EQ(phone.layout(page).scale, 4);
  page.show(1, 1);
  EXPECT_LE(page.height(), 64);
}

TEST_F(WebPage, DragExpandsABannerAndTypedTextArrivesInItsField) {
  const PagePhone phone(root());
  const int controller = phone.showBanner();
  PageConnection page(phone.page());
  page.show(pageWidth, pageHeight);
  phone.pressAndDrag(page, {188, 70}, {0, 120});
  phone.touch(page, "ended", {188, 190});
  ASSERT_TRUE(page.until([&] { return phone.state(controller)["expanded"] == true; }));
  ASSERT_TRUE(page.until([&] { return phone.showsText("send"); }));
  page.send({{"do", "type"}, {"text", "At one! 日本"}});
  page.send({{"do", "key"}, {"name", "backspace"}});
  EXPECT_TRUE(page.until([&] { return phone.showsText("At one! 日"); }));
  page.send({{"do", "key"}, {"name", "escape"}});
  EXPECT_TRUE(page.until([&] { return !phone.showsText("send"); }));
}

TEST_F(WebPage, KeysSelectAndActivateElements) {
  const PagePhone phone(root());
  const int controller = phone.showBanner();
  PageConnection page(phone.page());
  page.show(pageWidth, pageHeight);
  page.send({{"do", "key"}, {"name", "next"}});
  ASSERT_TRUE(page.until([&] { return page.values().contains("ring") && page.values()["ring"].is_array(); }));
  const json ring = page.values()["ring"];
  page.send({{"do", "key"}, {"name", "down"}});
  ASSERT_TRUE(page.until([&] { return page.values()["ring"] != ring; }));
  page.send({{"do", "key"}, {"name", "up"}});
  ASSERT_TRUE(page.until([&] { return page.values()["ring"] == ring; }));
  page.send({{"do", "key"}, {"name", "space"}});
  EXPECT_TRUE(page.until([&] { return phone.state(controller)["dismissed"] == true; }));
  EXPECT_TRUE(page.until([&] { return page.values()["ring"].is_null(); }));
}

TEST_F(WebPage, DescribesItsElementsAndPerformsTheirActions) {
  const PagePhone phone(root());
  PageConnection page(phone.page());
  page.send({{"do", "describe"}});
  page.show(pageWidth, pageHeight);
  const auto elementWith = [&](const char* member, const std::string& value) {
    for (const json& element : page.values().value("elements", json::array()))
      if (element[member] == value) return element;
    return json();
  };
  ASSERT_TRUE(page.until([&] { return !elementWith("role", "icon").is_null(); }));
  EXPECT_TRUE(elementWith("role", "notification").is_null());
  phone.showBanner();
  ASSERT_TRUE(page.until([&] { return !elementWith("role", "notification").is_null(); }));
  const json banner = elementWith("role", "notification");
  EXPECT_THAT(banner["label"].get<std::string>(), HasSubstr("Anna"));
  // The banner is in the upper part of the picture.
  EXPECT_LT(banner["frame"][1].get<double>() + banner["frame"][3].get<double>(), 0.3);
  // Invalid identifiers and actions have no effect.
  page.send({{"do", "act"}, {"element", 0}, {"action", 0}});
  page.send({{"do", "act"}, {"element", banner["id"]}, {"action", 100}});
  page.send({{"do", "focus"}, {"element", 0}});
  page.send({{"do", "focus"}, {"element", banner["id"]}});
  EXPECT_TRUE(page.until([&] { return elementWith("role", "notification")["focused"] == true; }));
  EXPECT_TRUE(page.values()["ring"].is_array());
  page.send({{"do", "act"}, {"element", banner["id"]}, {"action", 0}});
  EXPECT_TRUE(page.until([&] { return elementWith("role", "notification").is_null(); }));
}

TEST_F(WebPage, ButtonsOfTheBodyLockAndUnlock) {
  const PagePhone phone(root(), "iphone-8");
  const auto isLocked = [&] {
    return phone.tell({{"do", "tree"}}).dump().find("NCNotificationListView") != std::string::npos;
  };
  PageConnection page(phone.page());
  page.show(pageWidth, pageHeight);
  for (const char* phase : {"began", "ended"}) phone.touch(page, phase, {396, 130});
  ASSERT_TRUE(page.until(isLocked));
  for (const char* phase : {"began", "ended"}) phone.touch(page, phase, {187.5, 713});
  EXPECT_TRUE(page.until([&] { return !isLocked(); }));
}

TEST_F(WebPage, ClosingItCancelsItsTouch) {
  const PagePhone phone(root());
  const int controller = phone.showBanner();
  {
    PageConnection page(phone.page());
    page.show(pageWidth, pageHeight);
    phone.touch(page, "began", {188, 70});
    ASSERT_TRUE(page.until([&] { return phone.tell(tapElsewhere)["ok"] == false; }));
  }
  EXPECT_TRUE(eventually([&] { return phone.tell(tapElsewhere)["ok"] == true; }));
  EXPECT_EQ(phone.state(controller)["dismissed"], false);
}

TEST_F(WebPage, InvalidMessagesCloseOnlyTheirConnection) {
  const PagePhone phone(root());
  PageConnection other(phone.page());
  other.show(pageWidth, pageHeight);
  for (const std::string message : {
           R"()",
           R"({"do":"show")",
           R"([])",
           R"({"do":"unknown"})",
           R"({"do":["show"]})",
           R"({"do":"show","width":0,"height":100})",
           R"({"do":"show","width":100,"height":1e300})",
           R"({"do":"show","width":18446744073709551615,"height":1})",
           R"({"do":"touch","phase":"began","x":1e9,"y":0})",
           R"({"do":"touch","phase":"began","x":null,"y":0})",
           R"({"do":"touch","phase":"hovered","x":0,"y":0})",
           R"({"do":"type","text":7})",
           R"({"do":"key","name":"power"})",
           R"({"do":"act","element":-1,"action":0})",
           R"({"do":"act","element":1,"action":1e300})",
           R"({"do":"focus","element":"1"})",
           R"({"do":"play","preset":-1})",
           R"({"do":"play","preset":999})",
           R"({"do":"send","preset":0})",
       }) {
    PageConnection page(phone.page());
    page.sendText(message);
    EXPECT_TRUE(page.until([&] { return page.closeCode() != 0; })) << message;
    EXPECT_EQ(page.closeCode(), refused) << message;
  }
  EXPECT_TRUE(other.isOpen());
  EXPECT_TRUE(other.until([&] { return phone.isShownBy(other); }));
}

TEST_F(WebPage, BinaryLargeAndUnexpectedMessagesCloseTheirConnection) {
  const PagePhone phone(root());
  PageConnection binary(phone.page());
  binary.sendBinary("{}");
  EXPECT_TRUE(binary.until([&] { return binary.closeCode() == refused; }));
  PageConnection large(phone.page());
  large.sendText(R"({"do":"type","text":")" + std::string(100'000, 'a') + R"("})");
  EXPECT_TRUE(large.until([&] { return large.closeCode() == tooLarge; })) << large.closeCode();
  PageConnection huge(phone.page());
  huge.sendText(std::string(10'000'000, 'a'));
  EXPECT_TRUE(huge.until([&] { return huge.closeCode() != 0; }));
  PageConnection deep(phone.page());
  deep.sendText(std::string(60'000, '['));
  EXPECT_TRUE(deep.until([&] { return deep.closeCode() == refused; }));
  // The page acknowledges more messages than it has received.
  PageConnection eager(phone.page());
  for (int count = 0; count < 3; ++count) eager.send({{"do", "acknowledge"}});
  EXPECT_TRUE(eager.until([&] { return eager.closeCode() == refused; }));
  EXPECT_EQ(phone.tell(tapElsewhere)["ok"], true);
}

TEST_F(WebPage, MessageOfManyFramesClosesItsConnection) {
  constexpr unsigned char text = 1;
  constexpr unsigned char continuation = 0;
  constexpr unsigned char final = 0x80;
  const PagePhone phone(root());
  // Acknowledgements between the frames of a message are errors.
  PageConnection valid(phone.page());
  valid.setAcknowledgement(test::Acknowledgement::Manual);
  valid.sendFrame(text, R"({"do":"show",)");
  valid.sendFrame(continuation, R"("width":471,"height":)");
  valid.sendFrame(continuation | final, "908}");
  EXPECT_TRUE(valid.until([&] { return valid.width() > 0; }));
  PageConnection endless(phone.page());
  endless.setAcknowledgement(test::Acknowledgement::Manual);
  endless.sendFrame(text, std::string(10'000, 'a'));
  for (int count = 0; count < 100 && endless.isOpen(); ++count)
    endless.sendFrame(continuation, std::string(10'000, 'a'));
  EXPECT_TRUE(endless.until([&] { return endless.closeCode() == tooLarge; })) << endless.closeCode();
  EXPECT_TRUE(valid.isOpen());
  EXPECT_EQ(phone.tell(tapElsewhere)["ok"], true);
}

TEST_F(WebPage, SlowPageReceivesTheLatestPictureLater) {
  const PagePhone phone(root());
  PageConnection slow(phone.page());
  PageConnection fast(phone.page());
  slow.show(pageWidth, pageHeight);
  fast.show(pageWidth, pageHeight);
  ASSERT_TRUE(slow.until([&] { return phone.isShownBy(slow); }));
  slow.setAcknowledgement(test::Acknowledgement::Manual);
  const int received = slow.received();
  for (const char* style : {"dark", "light", "dark", "light", "dark"}) {
    const int before = fast.received();
    phone.tell({{"do", "appearance"}, {"style", style}});
    ASSERT_TRUE(fast.until([&] { return fast.received() > before; }));
  }
  ASSERT_TRUE(fast.until([&] { return phone.isShownBy(fast); }));
  EXPECT_EQ(slow.received(), received + 2);
  EXPECT_FALSE(phone.isShownBy(slow));
  slow.setAcknowledgement(test::Acknowledgement::Automatic);
  EXPECT_TRUE(slow.until([&] { return phone.isShownBy(slow); }));
  EXPECT_LE(slow.received(), received + 4);
}

TEST_F(WebPage, ReceivesNothingWhileThePhoneIsIdle) {
  const PagePhone phone(root());
  PageConnection page(phone.page());
  page.show(pageWidth, pageHeight);
  ASSERT_TRUE(page.until([&] { return phone.isShownBy(page); }));
  const int received = page.received();
  for (int count = 0; count < 10; ++count) {
    phone.tell({{"do", "wait"}, {"seconds", 0.05}});
    page.until([] { return true; });
  }
  // The next text message is sent in order, after all pending frames.
  page.send({{"do", "key"}, {"name", "next"}});
  ASSERT_TRUE(page.until([&] { return page.values().contains("ring"); }));
  // The minute on the phone's clocks can change once.
  EXPECT_LE(page.received(), received + 2);
}

TEST_F(WebPage, PagesShowTheSamePhone) {
  const PagePhone phone(root());
  PageConnection small(phone.page());
  {
    PageConnection large(phone.page());
    small.show(300, 300);
    large.show(1500, 1500);
    EXPECT_LT(small.width(), large.width());
    EXPECT_TRUE(large.until([&] { return phone.isShownBy(large); }));
  }
  const int controller = phone.showBanner();
  EXPECT_TRUE(small.until([&] { return phone.isShownBy(small); }));
  for (const char* phase : {"began", "ended"}) phone.touch(small, phase, {188, 70});
  EXPECT_TRUE(small.until([&] { return phone.state(controller)["dismissed"] == true; }));
}

TEST_F(WebPage, NumberOfPagesIsLimited) {
  const PagePhone phone(root());
  std::list<PageConnection> pages;
  for (int count = 0; count < 8; ++count) EXPECT_TRUE(pages.emplace_back(phone.page()).isOpen());
  PageConnection another(phone.page());
  EXPECT_TRUE(another.until([&] { return another.closeCode() != 0; }));
  EXPECT_TRUE(pages.front().isOpen());
  pages.pop_back();
  EXPECT_TRUE(eventually([&] {
    PageConnection next(phone.page());
    next.until([&] { return next.closeCode() != 0 || next.received() > 0; });
    return next.isOpen();
  }));
}

TEST_F(WebPage, ClosesWhenThePhoneEnds) {
  PagePhone phone(root());
  PageConnection page(phone.page());
  kill(phone.process().process(), SIGTERM);
  EXPECT_TRUE(page.until([&] { return page.closeCode() == goingAway; })) << page.closeCode();
  EXPECT_TRUE(eventually([&] { return phone.process().hasSucceeded(); }));
}

TEST_F(WebPage, ClosesWhenThePhoneIsKilled) {
  PagePhone phone(root());
  PageConnection page(phone.page());
  phone.process().kill();
  EXPECT_TRUE(page.until([&] { return page.closeCode() == abnormal; })) << page.closeCode();
}

TEST_F(WebPage, HasTheSameTokenAfterARestart) {
  const PagePhone phone(root());
  const std::string first = phone.page();
  {
    PageConnection page(phone.page());
    EXPECT_EQ(phone.tell({{"do", "restart"}, {"device", "iphone-8"}})["ok"], true);
    EXPECT_TRUE(page.until([&] { return page.closeCode() == goingAway; }));
  }
  // Another phone can have taken the port.
  const std::string token = first.substr(first.find('/', std::string("http://").size()));
  ASSERT_TRUE(eventually([&] { return test::request(phone.page()).status == 200; }));
  EXPECT_TRUE(phone.page().ends_with(token));
  PageConnection page(phone.page());
  EXPECT_TRUE(page.until([&] { return page.values().value("device", "") == "iPhone 8"; }));
}

TEST_F(WebPage, ComposerSendsNotificationsAndShowsErrors) {
  const PagePhone phone(root());
  const json data = json::parse(test::request(phone.page() + "composer.json").body);
  EXPECT_GT(data["applications"].size(), 5U);
  const auto preset =
      std::ranges::find(data["presets"], "Right to left", [](const json& each) { return each["name"]; });
  ASSERT_NE(preset, data["presets"].end());
  const auto index = preset - data["presets"].begin();
  PageConnection page(phone.page());
  json message = {{"do", "send"}, {"preset", index}};
  message.update(*preset);
  message["title"] = "Sent by the page";
  page.send(message);
  EXPECT_TRUE(page.until([&] { return phone.showsText("Sent by the page"); }));
  page.send({{"do", "play"}, {"preset", index}});
  EXPECT_TRUE(page.until([&] { return phone.showsText((*preset)["title"]); }));
  message["application"] = "";
  page.send(message);
  EXPECT_TRUE(page.until([&] { return !page.values().value("error", std::string()).empty(); }));
}

}  // namespace
