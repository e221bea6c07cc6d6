// A test fixture with a phone that does not load the library. It opens long looks and inspects their views.
#pragma once

#include <string>
#include <vector>

#include "objc/autorelease_pool.hpp"
#include "tests/support/plain_phone.hpp"

namespace test {

class LongLook : public testing::Test {
 protected:
  explicit LongLook(runner::Options options = {}) : phone(std::move(options)) {}

  // Presents a notification and opens its long look. Returns its controller's number.
  int open(const Json& fields = Json::object()) {
    const int controller = phone.present(fields);
    phone.wait(1);
    phone.run("longlook", {{"controller", controller}});
    phone.wait(1);
    phone.log();
    return controller;
  }
  int openWithActions() {
    return open({{"close", true},
                 {"actions",
                  {{{"key", "a"}, {"identifier", "archive"}, {"title", "Archive"}},
                   {{"key", "a"}, {"identifier", "nameless"}}}}});
  }

  Json windows() { return phone.run("tree").at("windows"); }
  Json view(const char* className) { return PlainPhone::find(windows(), "class", className); }
  // The node of the long look's view. Null if no long look is open.
  Json card() { return view("NCNotificationLongLookView"); }
  bool isOpen() { return !card().is_null(); }
  bool hasText(const Json& view, const std::string& text) {
    return !PlainPhone::find(Json::array({view}), "text", text).is_null();
  }
  // Returns the identifiers of the actions executed since the last call, and clears the log.
  std::vector<std::string> executedActions() {
    std::vector<std::string> found;
    const Json events = phone.log();
    for (const Json& event : events)
      if (event.at("event") == "action") found.push_back(event.at("identifier"));
    return found;
  }
  // The number of notifications in the list.
  std::size_t listedCount() { return phone.run("notifications").at("notifications").size(); }
  void tapMiddle(const Json& view) {
    const Json& frame = view.at("frame");
    phone.run(
        "tap",
        {{"at",
          {frame[0].get<double>() + frame[2].get<double>() / 2, frame[1].get<double>() + frame[3].get<double>() / 2}}});
  }

  static double top(const Json& view) { return view.at("frame")[1]; }
  static double bottom(const Json& view) { return top(view) + view.at("frame")[3].get<double>(); }

  PlainPhone phone;
  objc::AutoreleasePool pool;
};

using Identifiers = std::vector<std::string>;

}  // namespace test
