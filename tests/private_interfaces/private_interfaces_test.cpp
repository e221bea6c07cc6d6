// Tests of banners on phones that each lack one private interface. The library must not send a message to which the
// receiver does not respond, and must not show an empty banner.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>

#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"
#include "tests/private_interfaces/withheld.hpp"

namespace {

using test::Json;
using test::Phone;
using test::PrivateInterface;
using testing::HasSubstr;
using testing::IsEmpty;

const PrivateInterface& interfaceNamed(const std::string& description) {
  for (const PrivateInterface& interface : test::privateInterfaces())
    if (test::descriptionOf(interface) == description) return interface;
  throw std::invalid_argument("the list does not contain " + description);
}

// A phone with a system version that has the interface.
test::Setup setupFor(const PrivateInterface& interface) {
  test::Setup setup;
  setup.settings = {{"showButtons", true}};
  if (std::string(interface.until) == "12.0") setup.options.systemVersion = "11.4";
  return setup;
}

// Returns what the user sees of a notification: Brim's banner, the system's banner, or an empty one.
std::string appearance(Phone& phone, int controller) {
  if (phone.state(controller).at("brim")) {
    const Json header = phone.view(controller, "headerLabel");
    return header.is_null() || header.value("text", "").empty() ? "empty" : "Brim's";
  }
  const Json trees = phone.windows(controller);
  return test::firstNode(trees, "text", "Hello").is_null() ? "empty" : "the system's";
}

// Drags, types, taps buttons, locks, requests the test banner, and lets banners be dismissed in all ways.
void useBanners(Phone& phone) {
  const Json messages = {{"section", "com.apple.MobileSMS"}, {"title", "Anna"}, {"message", "Hello"}, {"thread", "+1"}};
  const int first = phone.present(messages);
  phone.wait(1);
  phone.runUnchecked({{"do", "drag"}, {"controller", first}, {"by", {0, 200}}});
  phone.wait(1);
  phone.runUnchecked({{"do", "type"}, {"text", "Yes"}});
  phone.runUnchecked({{"do", "key"}, {"name", "return"}});
  phone.wait(3);
  const int alarm =
      phone.present({{"section", "com.apple.mobiletimer"},
                     {"title", "Alarm"},
                     {"message", "Hello"},
                     {"dismissAutomatically", false},
                     {"close", true},
                     {"actions", {{{"key", "a"}, {"identifier", "MTAlarmSnoozeAction"}, {"title", "S"}}}}});
  phone.wait(1);
  phone.runUnchecked({{"do", "update"}, {"controller", alarm}, {"message", "More"}});
  phone.runUnchecked({{"do", "tap"}, {"label", "Stop"}});
  phone.runUnchecked({{"do", "longlook"}, {"controller", alarm}});
  phone.wait(1);
  phone.runUnchecked({{"do", "press"}, {"type", 101}, {"force", 0}});
  phone.runUnchecked({{"do", "grabber"}});
  phone.run({{"do", "lock"}});
  phone.wait(2);
  phone.present(messages);
  phone.wait(1);
  phone.runUnchecked({{"do", "testbanner"}});
  phone.wait(1);
  phone.runUnchecked({{"do", "appearance"}, {"style", "dark"}});
  phone.wait(20);
}

class MissingInterface : public testing::TestWithParam<PrivateInterface> {};

TEST_P(MissingInterface, HasItsFallback) {
  const PrivateInterface& interface = GetParam();
  test::withhold(interface);
  testing::internal::CaptureStderr();
  Phone phone(setupFor(interface));
  const std::string log = testing::internal::GetCapturedStderr();
  const int controller = phone.present({{"title", "Anna"}, {"message", "Hello"}});
  if (interface.requirement == Requirement::None) {
    EXPECT_EQ(appearance(phone, controller), "Brim's");
    EXPECT_THAT(log, Not(HasSubstr("Brim is inactive")));
  } else {
    EXPECT_EQ(appearance(phone, controller), "the system's");
    EXPECT_THAT(log, HasSubstr("Brim is inactive"));
    EXPECT_THAT(log, HasSubstr(test::descriptionOf(interface)));
    EXPECT_TRUE(phone.run({{"do", "hooks"}}).at("rows").empty());
  }
  if (interface.kind == InterfaceKind::PlatformClass) {
    const Json hooks = phone.run({{"do", "hooks"}});
    for (const Json& row : hooks.at("rows"))
      EXPECT_FALSE(row.at("class") == interface.className && row.at("effective")) << row;
  }
  useBanners(phone);
  EXPECT_THAT(test::unrecognizedSelectors(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, MissingInterface, testing::ValuesIn(test::interfacesIn(test::App::HomeScreen)),
                         &test::testName);

TEST(InactiveLibrary, ReportsAClassThatTheRuntimeRefuses) {
  test::refuseToDefine("BrimContainer");
  testing::internal::CaptureStderr();
  Phone phone;
  EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("the runtime did not register a class"));
  const int controller = phone.present({{"title", "Anna"}, {"message", "Hello"}});
  EXPECT_EQ(appearance(phone, controller), "the system's");
  EXPECT_TRUE(phone.run({{"do", "hooks"}}).at("rows").empty());
}

TEST(WithheldInterface, MessagesCannotBeRepliedToWithoutALaunch) {
  test::withhold(interfaceNamed("-[UIApplication launchApplicationWithIdentifier:suspended:]"));
  Phone phone;
  const int controller = phone.present({{"section", "com.apple.MobileSMS"}, {"title", "Anna"}, {"message", "Hello"}});
  EXPECT_FALSE(test::containerOf(controller)->canReply());
}

TEST(WithheldInterface, NoReplyIsOfferedIfTheWindowCannotGetTheKeyboard) {
  test::withhold(interfaceNamed("-[SBNotificationBannerWindow _canBecomeKeyWindow]"));
  Phone phone;
  const int controller = phone.present({{"section", "com.apple.MobileSMS"}, {"title", "Anna"}, {"message", "Hello"}});
  EXPECT_FALSE(test::containerOf(controller)->canReply());
}

TEST(WithheldInterface, IconIsComparedByTheLibrarysOwnDigest) {
  test::withhold(interfaceNamed("-[NSData ic_md5]"));
  Phone phone;
  const int controller = phone.present({{"section", "com.apple.MobileSMS"}, {"title", "Anna"}});
  ASSERT_EQ(test::digestedData().size(), 1U);
  constexpr const char* jpegSignature = "\xFF\xD8\xFF";
  EXPECT_TRUE(test::digestedData().front().starts_with(jpegSignature));
  EXPECT_FALSE(phone.view(controller, "_appIV").at("image").is_null());
}

std::string contents(const std::filesystem::path& file) {
  std::ifstream stream(std::filesystem::path(SOURCE_FOLDER) / file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// Every message that the code sends only if it is available is in the list.
TEST(PrivateInterfaceList, ContainsEveryOptionalMessage) {
  std::set<std::string> listed;
  for (const PrivateInterface& interface : test::privateInterfaces()) listed.insert(interface.name);
  listed.insert("continuousCorners");
  static const std::regex optionalMessage("sendIfAvailable<[^\"]*\"([^\"]+)\">");
  std::size_t count = 0;
  for (const auto& file : std::filesystem::directory_iterator(std::filesystem::path(SOURCE_FOLDER) / "platform")) {
    const std::string text = contents(file.path());
    for (std::sregex_iterator match(text.begin(), text.end(), optionalMessage), end; match != end; ++match, ++count)
      EXPECT_TRUE(listed.contains((*match)[1])) << file.path() << " sends " << (*match)[1];
  }
  EXPECT_GT(count, 25U);
}

std::string documentedRow(const PrivateInterface& interface) {
  std::string systems = interface.since;
  systems +=
      std::string(interface.until).empty() ? " and later" : " and later, but before " + std::string(interface.until);
  return "| `" + test::descriptionOf(interface) + "` | " + systems + " | " + interface.effect + " |\n";
}

TEST(PrivateInterfaceList, IsInTheDocumentForPhones) {
  std::string table = "| interface | systems | without it |\n|---|---|---|\n";
  for (const PrivateInterface& interface : test::privateInterfaces()) table += documentedRow(interface);
  EXPECT_THAT(contents("docs/device.md"), HasSubstr(table)) << "the table must be:\n" << table;
}

}  // namespace
