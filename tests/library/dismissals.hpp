// What is left of a banner's way off the screen, and what the platform saw of it.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/library/phone.hpp"

namespace test {

inline constexpr double instant = 0.001;

// A notification that no timer takes away.
inline int presentPersistent(Phone& phone, const Json& fields = {{"title", "Anna"}, {"message", "Hello"}}) {
  Json all = {{"dismissAutomatically", false}};
  all.update(fields);
  return phone.present(all);
}

inline std::vector<std::string> commands(const Json& events) {
  std::vector<std::string> found;
  for (const Json& event : events)
    if (event.at("event") == "post" && event.at("name") == "BrimNotification")
      found.push_back(event.at("userInfo").at("command"));
  return found;
}

inline Json flags(Phone& phone, int controller) {
  Json found = Json::object();
  const Json state = phone.state(controller);
  for (const char* flag :
       {"dismissCalled", "autoDimissTriggered", "isDismissing", "hasDismissed", "wasExternallyDismissed"})
    if (state.at(flag).get<bool>()) found[flag] = true;
  return found;
}

inline void expectGoneAfter(Phone& phone, int controller, double seconds) {
  phone.wait(seconds - instant);
  EXPECT_TRUE(phone.state(controller).at("brim")) << "too early";
  phone.wait(2 * instant);
  EXPECT_FALSE(phone.state(controller).at("brim")) << "too late";
}

}  // namespace test
