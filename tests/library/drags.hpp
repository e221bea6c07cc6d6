// A banner of three lines, and a finger that pulls it.
#pragma once

#include "tests/library/phone.hpp"

namespace test {

inline int presentThreeLines(Phone& phone, const Json& fields = Json::object()) {
  Json all = {{"title", "Anna"}, {"message", "Hello\nAnna\nhere"}, {"dismissAutomatically", true}};
  all.update(fields);
  const int controller = phone.present(all);
  phone.wait(1);
  return controller;
}

inline Json drag(double distance, const char* end = "release", int steps = 1) {
  return {{"do", "drag"}, {"by", {0, distance}}, {"end", end}, {"steps", steps}};
}

}  // namespace test
