// A banner with three lines of text, and vertical drags.
#pragma once

#include "tests/library/phone.hpp"

namespace test {

// Waits until the banner has appeared. Returns the controller's number.
inline int presentThreeLines(Phone& phone, const Json& fields = Json::object()) {
  Json all = {{"title", "Anna"}, {"message", "Hello\nAnna\nhere"}, {"dismissAutomatically", true}};
  all.update(fields);
  const int controller = phone.present(all);
  phone.wait(1);
  return controller;
}

// The command for a drag of the newest banner. Distances are points; negative ones are upwards.
inline Json drag(double distance, const char* end = "release", int steps = 1) {
  return {{"do", "drag"}, {"by", {0, distance}}, {"end", end}, {"steps", steps}};
}

}  // namespace test
