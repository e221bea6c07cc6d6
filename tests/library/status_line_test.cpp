#include <gtest/gtest.h>

#include "platform/ns_date.hpp"
#include "tests/library/banner_layout.hpp"
#include "tests/library/platform_methods.hpp"

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

TEST(StatusLine, FontSizeIsAtMost28) {
  Phone phone = phoneWith({{"statusbarFontSize", 40}});
  const int controller = phone.present(sampleMessage());
  EXPECT_EQ(phone.view(controller, "_clockLabel").at("font").at("size"), 28);
  EXPECT_EQ(phone.view(controller, "_nowLabel").at("font").at("size"), 28);
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

NSString* formattedTime;

NSString* formatTime(objc::Original<NSString*(NSDateFormatter*, NSDate*)> original, NSDateFormatter* self,
                     NSDate* date) {
  return formattedTime != nullptr ? formattedTime : original(self, date);
}

// On a phone whose user has switched off 24-hour time, the formatter appends the day period to any format.
TEST(StatusLine, DayPeriodIsRemovedFromTheClock) {
  Phone phone = phoneWith({});
  test::replaceMethod<"stringFromDate:", &formatTime>(NSDateFormatter::classObject());
  for (NSString* time : {"9:41 AM"_ns, "9:41 PM"_ns, "9:41 am"_ns, "9:41 pm"_ns, "9:41"_ns}) {
    formattedTime = time;
    const int controller = phone.present(sampleMessage());
    EXPECT_EQ(phone.view(controller, "_clockLabel").at("text"), "9:41") << time->UTF8String();
  }
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
