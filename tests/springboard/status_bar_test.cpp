#include "tests/support/plain_phone.hpp"

namespace {

using test::Json;
using test::PlainPhone;

// Nineteen minutes to ten in the evening.
constexpr double evening = 1584222060;

std::string clockOf(PlainPhone& phone) {
  const Json bar = PlainPhone::find(phone.run("tree").at("windows"), "class", "UIStatusBarWindow");
  return PlainPhone::find(bar.at("children"), "class", "UILabel").at("text");
}

TEST(StatusBar, ShowsTwelveHoursWhereTheRegionCountsThem) {
  PlainPhone phone({.time = evening});
  EXPECT_EQ(clockOf(phone), "9:41");
}

TEST(StatusBar, ShowsTwentyFourHoursElsewhere) {
  PlainPhone phone({.locale = "fr_FR", .time = evening});
  EXPECT_EQ(clockOf(phone), "21:41");
}

TEST(StatusBar, ShowsTheLocalesDigits) {
  PlainPhone phone({.locale = "ar_EG", .time = evening});
  EXPECT_EQ(clockOf(phone), "٩:٤١");
}

TEST(StatusBar, GoesWithTheClock) {
  PlainPhone phone({.time = evening});
  phone.wait(60);
  EXPECT_EQ(clockOf(phone), "9:42");
}

}  // namespace
