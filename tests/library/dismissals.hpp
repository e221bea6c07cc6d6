// The state of a banner during its dismissal, and the commands that were posted.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/library/phone.hpp"

namespace test {

// In seconds. Tests check the state this long before and after an expected time.
inline constexpr double oneMillisecond = 0.001;

// Presents a notification that is not dismissed automatically. Returns the controller's number.
inline int presentPersistent(Phone& phone, const Json& fields = {{"title", "Anna"}, {"message", "Hello"}}) {
  Json all = {{"dismissAutomatically", false}};
  all.update(fields);
  return phone.present(all);
}

// The commands that banners posted to each other, in order.
inline std::vector<std::string> postedCommands(const Json& events) {
  std::vector<std::string> found;
  for (const Json& event : events)
    if (event.at("event") == "post" && event.at("name") == "BrimNotification")
      found.push_back(event.at("userInfo").at("command"));
  return found;
}

// Returns the dismissal flags of the controller that are true.
inline Json dismissalFlags(Phone& phone, int controller) {
  Json found = Json::object();
  const Json state = phone.state(controller);
  for (const char* flag :
       {"dismissCalled", "autoDimissTriggered", "isDismissing", "hasDismissed", "wasExternallyDismissed"})
    if (state.at(flag).get<bool>()) found[flag] = true;
  return found;
}

// Expects that the banner is removed after this number of seconds, neither earlier nor later. Advances the clock.
inline void expectRemovedAfter(Phone& phone, int controller, double seconds) {
  phone.wait(seconds - oneMillisecond);
  EXPECT_TRUE(phone.state(controller).at("brim")) << "removed too early";
  phone.wait(2 * oneMillisecond);
  EXPECT_FALSE(phone.state(controller).at("brim")) << "removed too late";
}

}  // namespace test
