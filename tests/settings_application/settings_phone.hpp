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

// The first node at or below `node` in which the field has this value. Null if there is no such node. In contrast to
// firstNode, this function copies only the result, because the trees are large.
inline Json nodeBelow(const Json& node, const char* field, const std::string& value) {
  if (!node.is_object()) return {};
  if (const auto found = node.find(field); found != node.end() && *found == value) return node;
  for (const Json& child : node.at("children"))
    if (Json found = nodeBelow(child, field, value); !found.is_null()) return found;
  return {};
}

class SettingsPhone {
 public:
  // Longer than every transition of the page.
  static constexpr double transitionSeconds = 0.5;

  explicit SettingsPhone(Setup setup = {}) : phone(std::move(setup)) {}

  void tapAt(Point point) {
    phone.run({{"do", "tap"}, {"at", {point.x, point.y}}});
    phone.wait(transitionSeconds);
  }
  void tapLabel(const std::string& text) {
    phone.run({{"do", "tap"}, {"label", text}});
    phone.wait(transitionSeconds);
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

  // The node of this class on the screen. Null if there is none.
  Json view(const char* className) {
    const Json answer = phone.run({{"do", "tree"}});
    for (const Json& window : answer.at("windows"))
      if (Json found = nodeBelow(window, "class", className); !found.is_null()) return found;
    return {};
  }
  // The nodes of the application; null while it is closed.
  Json application() { return view("SBSettingsView"); }
  Json table() { return view("PSTableView"); }
  // The row of the setting; null if there is none.
  Json row(const std::string& key) { return nodeBelow(table(), "key", key); }
  // The first view of this class in the row.
  Json control(const std::string& key, const char* className) { return nodeBelow(row(key), "class", className); }
  // Whether the row or the application shows this text.
  bool rowShows(const std::string& key, const std::string& text) {
    return !nodeBelow(row(key), "text", text).is_null();
  }
  bool shows(const std::string& text) { return !nodeBelow(application(), "text", text).is_null(); }
  Json sample() { return nodeBelow(view("SBSampleBannerView"), "class", "BrimContainer"); }

  // Scrolls to the row with a drag in the margin beside the cards.
  void reveal(const std::string& key) {
    const Json shown = table();
    const double middle = middleOf(shown).y;
    drag({4, middle}, 0, middle - middleOf(nodeBelow(shown, "key", key)).y, 1);
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
