#include "simulator/uikit/environment/environment.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string_view>

#include "simulator/uikit/environment/screen.hpp"
#include "simulator/uikit/environment/trait_collection.hpp"

namespace uikit {

namespace {

Environment& current() {
  static Environment instance;
  return instance;
}

// Returns whether the system has the dark appearance. Systems before 13.0 have only the light appearance.
bool hasDarkAppearance() { return std::atoi(current().systemVersion.c_str()) >= 13; }

}  // namespace

const Environment& environment() { return current(); }

void setEnvironment(const Environment& chosen) {
  current() = chosen;
  if (!hasDarkAppearance()) current().style = UIUserInterfaceStyle::Light;
  updateMainScreen();
}

void switchAppearance(UIUserInterfaceStyle style) {
  if (!hasDarkAppearance()) return;
  changeTraitsOfAllWindows([style] { current().style = style; });
}

LayoutDirection directionOfLocale(const std::string& locale) {
  constexpr std::array<std::string_view, 9> rightToLeft = {"ar", "dv", "fa", "he", "iw", "ps", "ur", "yi", "ckb"};
  const std::string_view language = std::string_view(locale).substr(0, locale.find_first_of("_-@."));
  return std::ranges::find(rightToLeft, language) == rightToLeft.end() ? LayoutDirection::LeftToRight
                                                                       : LayoutDirection::RightToLeft;
}

}  // namespace uikit
