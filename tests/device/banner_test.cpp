// A banner created by the phone's library: its views, constraints, object lifetimes and glyphs.

#include "tests/device/banner.hpp"

#include <gtest/gtest.h>

#include <map>

#include "tests/both_machines.hpp"

namespace {

using device::activeConstraints;
using device::Address;
using device::Banner;
using device::Constraint;
using device::holds;
using device::Phone;
using device::storedNumber;
using device::storedValue;

TEST(PhoneBanner, StoresItsProperties) {
  Phone phone;
  Banner banner(phone);
  EXPECT_EQ(phone.text(phone.runtime.send(banner.view, "originalHeader")), "Anna");
  EXPECT_EQ(phone.runtime.send(banner.view, "textAlignment"), 0U);
  EXPECT_EQ(phone.runtime.send(banner.view, "canReply") & 0xff, 1U);
}

TEST(PhoneBanner, BuildsItsViewsWhenItIsAddedToASuperview) {
  Phone phone;
  Banner banner(phone);
  banner.show();
  EXPECT_EQ(banner.textOf("_headerLabel"), "Anna");
  EXPECT_EQ(banner.textOf("_subHeaderLabel"), "Lunch");
  EXPECT_EQ(banner.textOf("_bodyLabel"), "See you at one?");
  EXPECT_EQ(banner.textOf("_clockLabel"), "21:41");
  EXPECT_EQ(banner.textOf("_nowLabel"), "now");
  EXPECT_EQ(storedValue(phone.runtime, banner.part("_appIV"), "image"), banner.icon);
  const Address font = storedValue(phone.runtime, banner.part("_headerLabel"), "font");
  EXPECT_EQ(phone.text(font), "bold");
  EXPECT_EQ(storedNumber(phone.runtime, font, "pointSize"), 15);
  EXPECT_EQ(storedValue(phone.runtime, banner.part("_bodyLabel"), "numberOfLines"), 2U);
}

TEST(PhoneBanner, ShowsTheTwelveHourClockWithoutItsMarker) {
  Phone phone;
  Banner banner(phone);
  banner.set("setMilitaryClock:", 0);
  banner.show();
  EXPECT_EQ(banner.textOf("_clockLabel"), "9:41");
}

TEST(PhoneBanner, IsPlacedByConstraintsAboveTheScreen) {
  Phone phone;
  Banner banner(phone);
  banner.show();
  const std::vector<Constraint> constraints = activeConstraints(phone);
  EXPECT_TRUE(holds(constraints, "BrimContainer.top == UIView.top", -70));
  EXPECT_TRUE(holds(constraints, "BrimContainer.leading == UIView.leading", 0));
  EXPECT_TRUE(holds(constraints, "UIImageView.width", 40));
  EXPECT_TRUE(holds(constraints, "BrimLabel.leading == UIImageView.trailing", 16));
  EXPECT_TRUE(holds(constraints, "UIStackView.height", 36));
  EXPECT_TRUE(holds(constraints, "UIView.height", 5.33));
}

TEST(PhoneBanner, IsTheTargetOfItsButtons) {
  Phone phone;
  Banner banner(phone);
  banner.show();
  for (const auto& [button, action] :
       {std::pair("_closeButton", "closeButtonPressed:"), std::pair("_clearButton", "clearButtonPressed:"),
        std::pair("_replyButton", "replyButtonPressed:")}) {
    const auto& target = phone.runtime.object(banner.part(button)).properties.at("addTarget:action:forControlEvents:");
    EXPECT_EQ(target.at(0), banner.view);
    EXPECT_EQ(phone.runtime.selectorName(target.at(1)), action);
    EXPECT_EQ(target.at(2), 64U);
  }
}

TEST(PhoneBanner, IsRetainedOnlyByItsSuperviewAndItsCreator) {
  Phone phone;
  Banner banner(phone);
  banner.show();
  EXPECT_EQ(phone.runtime.object(banner.view).retainCount, 2U);
}

TEST(PhoneBanner, ReleasesItsPartsWhenItIsDeallocated) {
  Phone phone;
  Banner banner(phone);
  banner.show();
  const Address header = banner.part("_headerLabel");
  const std::uint64_t retainCount = phone.runtime.object(header).retainCount;
  while (!phone.runtime.object(banner.view).isDeallocated) phone.runtime.release(banner.view);
  EXPECT_EQ(phone.runtime.object(header).retainCount, retainCount - 1);
}

TEST(PhoneBanner, ReturnsNilForADeallocatedDelegate) {
  Phone phone;
  Banner banner(phone);
  const Address delegate = phone.runtime.make("NSObject");
  banner.set("setDelegate:", delegate);
  phone.runtime.openPool();
  EXPECT_EQ(phone.runtime.send(banner.view, "delegate"), delegate);
  phone.runtime.drainPool();
  EXPECT_EQ(phone.runtime.object(delegate).retainCount, 1U);
  phone.runtime.release(delegate);
  EXPECT_EQ(phone.runtime.send(banner.view, "delegate"), 0U);
}

TEST(PhoneGlyphs, ExistForEachApplicationInTwoColors) {
  Phone phone;
  const std::vector<Address> before = phone.platform.dictionaries;
  const Banner banner(phone);
  ASSERT_EQ(phone.platform.dictionaries.size(), before.size() + 1);
  const auto& table = std::any_cast<const std::map<std::string, Address>&>(
      phone.runtime.object(phone.platform.dictionaries.back()).value);
  ASSERT_EQ(table.size(), 18U);
  const std::map<std::string, std::string> glyphs = {
      {"net.whatsapp.WhatsApp", "whatsapp"}, {"net.whatsapp.WhatsAppSMB", "whatsapp"},
      {"com.apple.MobileSMS", "imessages"},  {"com.atebits.Tweetie2", "twitter"},
      {"com.tinyspeck.chatlyio", "slack"},   {"com.hammerandchisel.discord", "discord"},
      {"com.burbn.instagram", "instagram"},  {"com.facebook.Messenger", "facebook_messenger"},
      {"ph.telegra.Telegraph", "telegram"}};
  for (const auto& [application, glyph] : glyphs) {
    EXPECT_EQ(phone.text(table.at(application + "-black")), "glyphs/black/" + glyph);
    EXPECT_EQ(phone.text(table.at(application + "-white")), "glyphs/white/" + glyph);
  }
}

TEST(PhoneGlyphs, FollowTheBannersColor) {
  Phone phone;
  Banner banner(phone);
  banner.show();
  banner.set("updateImage:", banner.icon);
  EXPECT_EQ(banner.badgePath(), std::string(test::assetBundle) + "/glyphs/white/imessages.png");
  const Address light = phone.runtime.send(phone.runtime.sendClass("BrimColors", "alloc"), "initWithMode:", {2});
  banner.set("setColorSet:", light);
  phone.runtime.send(banner.view, "updateColors");
  EXPECT_EQ(banner.badgePath(), std::string(test::assetBundle) + "/glyphs/black/imessages.png");
}

}  // namespace
