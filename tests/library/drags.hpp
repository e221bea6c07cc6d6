// Support for tests of drags: a banner with three lines of text, and the command for a vertical drag.
#pragma once

#include "tests/library/phone.hpp"

namespace test {

// Presents a banner with three lines of text and waits until it has appeared. Returns the controller's number.
inline int presentThreeLines(Phone& phone, const Json& fields = Json::object()) {
  Json all = {{"title", "Anna"}, {"message", "Hello\nAnna\nhere"}, {"dismissAutomatically", true}};
  all.update(fields);
  const int controller = phone.present(all);
  phone.wait(1);
  return controller;
}

// The command for a vertical drag of the newest banner. The distance is in points; a negative distance is upwards.
inline Json drag(double distance, const char* end = "release", int steps = 1) {
  return {{"do", "drag"}, {"by", {0, distance}}, {"end", end}, {"steps", steps}};
}

}  // namespace test
