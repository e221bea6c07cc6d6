// Tests of the clock in the status bar.
#include "tests/support/plain_phone.hpp"

namespace {

using test::Json;
using test::PlainPhone;

// 2020-03-14 at 21:41, UTC.
constexpr double evening = 1584222060;

std::string clockOf(PlainPhone& phone) {
  const Json bar = PlainPhone::find(phone.run("tree").at("windows"), "class", "UIStatusBarWindow");
  return PlainPhone::find(bar.at("children"), "class", "UILabel").at("text");
}

TEST(StatusBar, ShowsTwelveHoursInRegionsThatUseThem) {
  PlainPhone phone({.time = evening});
  EXPECT_EQ(clockOf(phone), "9:41");
}

TEST(StatusBar, ShowsTwentyFourHoursInOtherRegions) {
  PlainPhone phone({.locale = "fr_FR", .time = evening});
  EXPECT_EQ(clockOf(phone), "21:41");
}

TEST(StatusBar, ShowsTheLocalesDigits) {
  PlainPhone phone({.locale = "ar_EG", .time = evening});
  EXPECT_EQ(clockOf(phone), "٩:٤١");
}

TEST(StatusBar, UpdatesWithTheClock) {
  PlainPhone phone({.time = evening});
  phone.wait(60);
  EXPECT_EQ(clockOf(phone), "9:42");
}

}  // namespace
