// Tests of the colors of a banner, and how they follow the phone's appearance.
#include <gtest/gtest.h>

#include "platform/ui_device.hpp"
#include "simulator/uikit/environment/trait_collection.hpp"
#include "simulator/uikit/views/view_record.hpp"
#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"
#include "tests/library/platform_methods.hpp"

namespace {

using test::Json;
using test::Phone;

Phone phoneWith(std::map<std::string, Json> settings, runner::Options options = {}) {
  return Phone({.options = std::move(options), .settings = std::move(settings)});
}

struct ModeCase {
  const char* system;
  runner::StartAppearance appearance;
  int setting;
  std::array<double, 4> text;
};

class ColorMode : public testing::TestWithParam<ModeCase> {};

TEST_P(ColorMode, DependsOnSettingVersionAndAppearance) {
  runner::Options options;
  options.systemVersion = GetParam().system;
  options.appearance = GetParam().appearance;
  Phone phone = phoneWith({{"containerColor", GetParam().setting}}, options);
  const int controller = phone.present({{"title", "T"}});
  EXPECT_EQ(phone.view(controller, "headerLabel").at("color"), Json(GetParam().text));
}

constexpr std::array<double, 4> white = {1, 1, 1, 1};
constexpr std::array<double, 4> black = {0, 0, 0, 1};
constexpr std::array<double, 4> gray = {0.7, 0.7, 0.7, 1};

INSTANTIATE_TEST_SUITE_P(Modes, ColorMode,
                         testing::Values(ModeCase{"12.4", runner::StartAppearance::Light, 0, black},
                                         ModeCase{"12.4", runner::StartAppearance::Light, 1, white},
                                         ModeCase{"12.4", runner::StartAppearance::Light, 3, gray},
                                         ModeCase{"13.0", runner::StartAppearance::Light, 0, black},
                                         ModeCase{"13.0", runner::StartAppearance::Dark, 0, white},
                                         ModeCase{"13.5", runner::StartAppearance::Dark, 2, black},
                                         ModeCase{"13.5", runner::StartAppearance::Light, 1, white},
                                         ModeCase{"13.5", runner::StartAppearance::Light, 3, gray}),
                         [](const auto& each) {
                           const ModeCase& mode = each.param;
                           std::string name = std::string("System") + mode.system + "Setting" +
                                              std::to_string(mode.setting) +
                                              (mode.appearance == runner::StartAppearance::Dark ? "Dark" : "Light");
                           std::erase(name, '.');
                           return name;
                         });

TEST(FixedColorMode, OverridesTheControllersAppearance) {
  Phone phone = phoneWith({{"containerColor", 1}});
  const int firstDark = phone.present({{"title", "T"}});
  EXPECT_EQ(test::controllerOf(firstDark)->traitCollection()->userInterfaceStyle(), UIUserInterfaceStyle::Dark);
  phone.run({{"do", "lock"}});
  phone.set("containerColor", 3);
  const int dark = phone.present({{"title", "T"}});
  EXPECT_EQ(test::controllerOf(dark)->traitCollection()->userInterfaceStyle(), UIUserInterfaceStyle::Dark);
  phone.run({{"do", "lock"}});
  phone.run({{"do", "appearance"}, {"style", "dark"}});
  phone.set("containerColor", 2);
  const int light = phone.present({{"title", "T"}});
  EXPECT_EQ(test::controllerOf(light)->traitCollection()->userInterfaceStyle(), UIUserInterfaceStyle::Light);
}

TEST(AppearanceChange, FadesToTheNewColors) {
  Phone phone = phoneWith({});
  const int controller = phone.present({{"title", "T"}});
  phone.wait(1);
  phone.run({{"do", "appearance"}, {"style", "dark"}});
  phone.wait(0.8);
  EXPECT_EQ(phone.view(controller, "headerLabel").at("color"), Json(white));
  EXPECT_EQ(phone.banner(controller).at("background"), Json({0, 0, 0, 0.3}));
}

TEST(AppearanceChange, FadesFor800Milliseconds) {
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

TEST(AppearanceChange, HasNoEffectBeforeSystemVersion13) {
  runner::Options options;
  options.systemVersion = "12.4";
  options.appearance = runner::StartAppearance::Dark;
  Phone phone = phoneWith({}, options);
  phone.present({{"title", "T"}});
  phone.wait(1);
  const std::string light = phone.picture();
  phone.run({{"do", "appearance"}, {"style", "dark"}});
  phone.wait(1);
  EXPECT_TRUE(phone.picture() == light);
  EXPECT_EQ(UIScreen::mainScreen()->traitCollection()->userInterfaceStyle(), UIUserInterfaceStyle::Light);
}

int colorUpdates = 0;

void countColorUpdate(objc::Original<void(BrimContainer*, BrimColors*)> original, BrimContainer* self,
                      BrimColors* colors) {
  ++colorUpdates;
  original(self, colors);
}

// A change of the appearance for which the test itself sends the message that the controller would receive: a
// controller with a fixed mode keeps its appearance, and a system before 13.0 reports no change.
struct ReceivedChange {
  const char* name;
  const char* system;
  int setting;
  UIUserInterfaceStyle previous;
  int updates;
};

void PrintTo(const ReceivedChange& change, std::ostream* stream) { *stream << change.name; }

class ReceivedAppearanceChange : public testing::TestWithParam<ReceivedChange> {};

TEST_P(ReceivedAppearanceChange, UpdatesABannerThatFollowsTheSystem) {
  runner::Options options;
  options.systemVersion = GetParam().system;
  Phone phone = phoneWith({{"containerColor", GetParam().setting}}, options);
  const int controller = phone.present({{"title", "T"}});
  phone.wait(1);
  test::replaceMethod<"updateColorMode:", &countColorUpdate>(BrimContainer::classObject());
  objc::send<void, "traitCollectionDidChange:">(test::controllerOf(controller).get(),
                                                uikit::traitCollection(GetParam().previous));
  EXPECT_EQ(colorUpdates, GetParam().updates);
}

constexpr auto light = UIUserInterfaceStyle::Light;
constexpr auto dark = UIUserInterfaceStyle::Dark;

INSTANTIATE_TEST_SUITE_P(Cases, ReceivedAppearanceChange,
                         testing::Values(ReceivedChange{"FollowsSystem", "13.5", 0, dark, 1},
                                         ReceivedChange{"SameAppearance", "13.5", 0, light, 0},
                                         ReceivedChange{"FixedDark", "13.5", 1, dark, 0},
                                         ReceivedChange{"FixedLight", "13.5", 2, dark, 0},
                                         ReceivedChange{"FixedBlack", "13.5", 3, dark, 0},
                                         ReceivedChange{"Before13", "12.4", 0, dark, 0}),
                         [](const auto& each) { return each.param.name; });

int overrides = 0;

void countOverride(objc::Original<void(UIViewController*, UIUserInterfaceStyle)> original, UIViewController* self,
                   UIUserInterfaceStyle style) {
  ++overrides;
  original(self, style);
}

TEST(FixedColorMode, DoesNotOverrideTheAppearanceBeforeSystemVersion13) {
  runner::Options options;
  options.systemVersion = "12.4";
  Phone phone = phoneWith({{"containerColor", 1}}, options);
  test::replaceMethod<"setOverrideUserInterfaceStyle:", &countOverride>(UIViewController::classObject());
  EXPECT_EQ(phone.view(phone.present({{"title", "T"}}), "headerLabel").at("color"), Json(white));
  EXPECT_EQ(overrides, 0);
}

}  // namespace
