#include <gtest/gtest.h>

#include "tests/library/banner_layout.hpp"

namespace {

using test::Json;
using test::Phone;
using test::phoneWith;
using test::right;
using test::sampleMessage;
using test::top;

TEST(StatusLine, DisabledShowsThreeSpacesAndKeepsItsHeight) {
  Phone phone = phoneWith({{"statusbar", false}}, [](runner::Options& options) { options.device = "iphone-8"; });
  const int controller = phone.present(sampleMessage());
  phone.wait(1);
  EXPECT_EQ(phone.view(controller, "_clockLabel").at("text"), "   ");
  EXPECT_EQ(phone.view(controller, "_nowLabel").at("text"), "   ");
  EXPECT_DOUBLE_EQ(top(phone.view(controller, "_appIV")), top(phone.banner(controller)) + 44 + 15 + 15);
}

TEST(StatusLine, IsLowerOnADeviceWithoutBottomSafeArea) {
  Phone phone = phoneWith({}, [](runner::Options& options) { options.device = "iphone-8"; });
  const int controller = phone.present(sampleMessage());
  phone.wait(1);
  EXPECT_DOUBLE_EQ(top(phone.view(controller, "_clockLabel")), 8 - 70 + 65);
}

TEST(StatusLine, IsHigherOnADeviceWithBottomSafeArea) {
  Phone phone = phoneWith({}, [](runner::Options& options) { options.device = "iphone-11-pro-max"; });
  const int controller = phone.present(sampleMessage());
  phone.wait(1);
  EXPECT_DOUBLE_EQ(top(phone.view(controller, "_clockLabel")), 44 - 70 + 44);
}

TEST(StatusLine, ClockShowsTwentyFourHoursByDefault) {
  Phone phone = phoneWith({});
  const int controller = phone.present(sampleMessage());
  EXPECT_EQ(phone.view(controller, "_clockLabel").at("text"), "21:41");
  EXPECT_EQ(phone.view(controller, "_nowLabel").at("text"), "now");
}

TEST(StatusLine, TwelveHourClockHasNoDayPeriod) {
  Phone phone = phoneWith({{"24_h_clock", false}});
  const int controller = phone.present(sampleMessage());
  EXPECT_EQ(phone.view(controller, "_clockLabel").at("text"), "9:41");
}

TEST(StatusLine, NowLabelIsLocalizedAndAtTheTrailingEdge) {
  Phone phone = phoneWith({}, [](runner::Options& options) { options.locale = "de_DE"; });
  const int controller = phone.present(sampleMessage());
  phone.wait(1);
  const Json now = phone.view(controller, "_nowLabel");
  EXPECT_EQ(now.at("text"), "jetzt");
  EXPECT_DOUBLE_EQ(right(now), 375 - 8 - 34);
}

}  // namespace
