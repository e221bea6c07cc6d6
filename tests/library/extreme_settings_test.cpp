// Tests of extreme and malformed values of the settings that determine the layout. The texts of a banner must stay
// inside it and must not overlap.
#include <gtest/gtest.h>

#include "tests/library/banner_layout.hpp"

namespace {

using test::bottom;
using test::Json;
using test::left;
using test::Phone;
using test::right;
using test::top;

constexpr const char* integerSettings[] = {"containerCornerRadius", "appCornerRadius", "appSize",
                                           "containerColor",        "textAlignment",   "topOffset",
                                           "maxLineCount",          "headerFontSize",  "textFontSize",
                                           "statusbarFontSize",     "appIconPfp",      "tinyBannerFontSize"};

std::vector<Json> extremeValues() {
  return {0, -1, 1, 99, 1e9, -1e9, 9e18, 0.5, "99", "NaN", "", std::string(5000, '9'), true, Json::array()};
}

// The labels of the banner that show a text.
std::vector<Json> texts(Phone& phone, int controller) {
  std::vector<Json> found;
  for (const char* name : {"_clockLabel", "_nowLabel", "headerLabel", "subHeaderLabel", "bodyLabel"}) {
    const Json label = phone.view(controller, name);
    if (!label.is_null() && !label.value("text", "").empty()) found.push_back(label);
  }
  return found;
}

// Returns the upper and the lower edge of the letters. Only accents can be above them, and descenders below them.
double upperEdge(const Json& label) { return top(label) + 0.2 * label.at("font").at("size").get<double>(); }
double lowerEdge(const Json& label) { return bottom(label) - 0.25 * label.at("font").at("size").get<double>(); }

bool overlap(const Json& first, const Json& second) {
  return left(first) < right(second) && left(second) < right(first) && upperEdge(first) < lowerEdge(second) &&
         upperEdge(second) < lowerEdge(first);
}

enum class Overlap { Forbidden, Allowed };

void expectTextsInside(Phone& phone, int controller, Overlap allowed) {
  const Json banner = phone.banner(controller);
  ASSERT_FALSE(banner.is_null());
  const std::vector<Json> labels = texts(phone, controller);
  for (std::size_t index = 0; index < labels.size(); ++index) {
    const Json& label = labels[index];
    EXPECT_GT(right(label), left(label)) << label;
    EXPECT_GE(left(label), left(banner)) << label;
    EXPECT_LE(right(label), right(banner)) << label;
    EXPECT_GE(top(label), top(banner)) << label;
    EXPECT_LE(bottom(label), bottom(banner)) << label;
    if (allowed == Overlap::Allowed) continue;
    for (std::size_t other = index + 1; other < labels.size(); ++other)
      EXPECT_FALSE(overlap(label, labels[other])) << label << labels[other];
  }
}

class ExtremeSetting : public testing::TestWithParam<const char*> {};

TEST_P(ExtremeSetting, KeepsTheTextsInsideTheBannerWithoutOverlap) {
  Phone phone = test::phoneWith({});
  for (const bool tiny : {false, true}) {
    phone.set("tinyBanner", tiny);
    for (const Json& value : extremeValues()) {
      SCOPED_TRACE(value.dump().substr(0, 20) + (tiny ? ", tiny" : ""));
      phone.set(GetParam(), value);
      const int controller =
          phone.present({{"title", "Anna Weber"}, {"subtitle", "Lunch"}, {"message", "Are we still on for lunch?"}});
      phone.wait(1);
      // A negative offset moves the texts up to the status line.
      const bool movesTextsUp = GetParam() == std::string("topOffset") && value.is_number() && value < -1;
      expectTextsInside(phone, controller, movesTextsUp ? Overlap::Allowed : Overlap::Forbidden);
      phone.run({{"do", "dismiss"}, {"controller", controller}, {"transition", 30}});
      phone.wait(2);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Settings, ExtremeSetting, testing::ValuesIn(integerSettings),
                         [](const auto& key) { return std::string(key.param); });

}  // namespace
