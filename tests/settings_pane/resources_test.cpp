// Tests of the icon and of the property lists that describe the bundle.
#include <gtest/gtest.h>

#include "tests/assets/png_image.hpp"
#include "tests/settings_pane/pane_files.hpp"

namespace {

using test::Json;

TEST(PaneBundle, NamesItsExecutableAndTheClassOfThePage) {
  const Json information = test::propertyList(test::paneBundle() / "Info.plist");
  EXPECT_EQ(information.at("CFBundleIdentifier"), "com.marrowgate.brim.preferences");
  EXPECT_EQ(information.at("CFBundleExecutable"), "BrimPreferences");
  EXPECT_TRUE(std::filesystem::exists(test::paneBundle() / "BrimPreferences"));
  EXPECT_EQ(information.at("NSPrincipalClass"), "BrimListController");
  EXPECT_EQ(information.at("CFBundleShortVersionString"), BRIM_VERSION);
}

TEST(PaneEntry, OpensTheClassOfTheBundle) {
  const Json information = test::propertyList(test::paneBundle() / "Info.plist");
  const Json entry = test::propertyList(SETTINGS_PANE_ENTRY).at("entry");
  EXPECT_EQ(entry.at("cell"), "PSLinkCell");
  EXPECT_EQ(entry.at("isController"), true);
  EXPECT_EQ(entry.at("label"), "Brim");
  EXPECT_EQ(entry.at("bundle").get<std::string>() + ".bundle", test::paneBundle().filename().string());
  EXPECT_EQ(entry.at("detail"), information.at("NSPrincipalClass"));
  EXPECT_EQ(entry.at("icon"), "icon.png");
}

TEST(PaneIcon, HasTheSizeOfARowOfTheSettingsApplicationAndRoundCorners) {
  for (const int scale : {2, 3}) {
    const assets_test::PngImage icon(test::paneBundle() / ("icon@" + std::to_string(scale) + "x.png"));
    const int side = 29 * scale;
    ASSERT_EQ(icon.size(), (assets_test::Size{side, side}));
    for (const auto& [x, y] : {std::pair(0, 0), std::pair(side - 1, 0), std::pair(0, side - 1)})
      EXPECT_EQ(icon.at(x, y).alpha, 0) << x << " " << y;
    EXPECT_EQ(icon.at(side / 2, 0).alpha, 1);
    EXPECT_EQ(icon.at(side / 2, side / 2).alpha, 1);
  }
}

}  // namespace
