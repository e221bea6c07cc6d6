// Banners as tests of their layout look at them: on a phone in the evening, by the edges of what the tree shows.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>

#include "tests/library/phone.hpp"

namespace test {

// 21:41 in a zone without an offset.
inline constexpr double evening = 1767303660;

inline Phone phoneWith(std::map<std::string, Json> settings,
                       const std::function<void(runner::Options&)>& choose = nullptr) {
  Setup setup;
  setup.options.time = evening;
  setup.settings = std::move(settings);
  if (choose) choose(setup.options);
  return Phone(setup);
}

inline Json message() { return {{"title", "Anna Weber"}, {"message", "Are we still on for lunch?"}}; }

inline double left(const Json& view) { return view.at("frame").at(0); }
inline double top(const Json& view) { return view.at("frame").at(1); }
inline double width(const Json& view) { return view.at("frame").at(2); }
inline double height(const Json& view) { return view.at("frame").at(3); }
inline double right(const Json& view) { return left(view) + width(view); }
inline double bottom(const Json& view) { return top(view) + height(view); }

}  // namespace test
