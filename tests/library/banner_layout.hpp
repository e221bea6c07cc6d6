// Support for tests of the banner's layout: a phone at a fixed time, and the edges of the nodes in the view tree.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>

#include "tests/library/phone.hpp"

namespace test {

// 2026-01-01T21:41:00Z, in seconds since 1970.
inline constexpr double eveningTime = 1767303660;

inline Phone phoneWith(std::map<std::string, Json> settings,
                       const std::function<void(runner::Options&)>& configure = nullptr) {
  Setup setup;
  setup.options.time = eveningTime;
  setup.settings = std::move(settings);
  if (configure) configure(setup.options);
  return Phone(setup);
}

inline Json sampleMessage() { return {{"title", "Anna Weber"}, {"message", "Are we still on for lunch?"}}; }

// Edges and size of a node's frame, in points. The origin is the top left corner of the screen.
inline double left(const Json& view) { return view.at("frame").at(0); }
inline double top(const Json& view) { return view.at("frame").at(1); }
inline double width(const Json& view) { return view.at("frame").at(2); }
inline double height(const Json& view) { return view.at("frame").at(3); }
inline double right(const Json& view) { return left(view) + width(view); }
inline double bottom(const Json& view) { return top(view) + height(view); }

}  // namespace test
