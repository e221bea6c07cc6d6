// A simulated phone on which a test opens the Settings application and operates its controls with a finger.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/library/phone.hpp"
#include "tests/settings_pane/pane_files.hpp"

namespace test {

struct Point {
  double x;
  double y;
};

inline Point middleOf(const Json& node) {
  const Json& frame = node.at("frame");
  return {frame.at(0).get<double>() + frame.at(2).get<double>() / 2,
          frame.at(1).get<double>() + frame.at(3).get<double>() / 2};
}

class SettingsPhone {
 public:
  explicit SettingsPhone(Setup setup = {}) : phone(std::move(setup)) {}

  void tapAt(Point point) {
    phone.run({{"do", "tap"}, {"at", {point.x, point.y}}});
    phone.wait(1);
  }
  void tapLabel(const std::string& text) {
    phone.run({{"do", "tap"}, {"label", text}});
    phone.wait(1);
  }
  void drag(Point from, double dx, double dy, int steps = 10) {
    phone.run({{"do", "drag"}, {"at", {from.x, from.y}}, {"by", {dx, dy}}, {"steps", steps}});
    phone.wait(0.1);
  }

  // Taps the icon on the home screen. It is above its name.
  void open() {
    const Point name = middleOf(firstNode(phone.windows(), "text", "Settings"));
    tapAt({name.x, name.y - 40});
  }

  // The nodes of the application; null while it is closed.
  Json application() { return firstNode(phone.windows(), "class", "SBSettingsView"); }
  Json table() { return firstNode(Json::array({application()}), "class", "PSTableView"); }
  // The row of the setting; null if there is none.
  Json row(const std::string& key) { return firstNode(Json::array({table()}), "key", key); }
  // The first view of this class in the row.
  Json control(const std::string& key, const std::string& className) {
    return firstNode(Json::array({row(key)}), "class", className);
  }
  Json sample() {
    return firstNode(Json::array({firstNode(phone.windows(), "class", "SBSampleBannerView")}), "class",
                     "BrimContainer");
  }

  // Scrolls to the row with a drag in the margin beside the cards.
  void reveal(const std::string& key) {
    const Json frame = table().at("frame");
    const double middle = frame.at(1).get<double>() + frame.at(3).get<double>() / 2;
    drag({4, middle}, 0, middle - middleOf(row(key)).y);
  }

  // The value in the preferences file; null if there is none.
  Json storedValue(const std::string& key) const {
    const std::filesystem::path file = preferencesFile();
    return std::filesystem::exists(file) ? propertyList(file).value(key, Json()) : Json();
  }
  std::filesystem::path preferencesFile() const {
    return phone.root() / "var/mobile/Library/GNUstep/Defaults/com.marrowgate.brimprefs.plist";
  }

  Phone phone;
};

}  // namespace test
