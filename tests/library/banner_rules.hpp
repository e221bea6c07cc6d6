// What must hold of every banner whatever happens on the phone, checked after each command.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"

namespace test {

class BannerRules {
 public:
  // A finger is about to move on the banners that are there: it may pull them open.
  void expectDrag();
  // Looks at every banner and at what the platform saw since the last time. Answers what is broken, empty if nothing.
  std::string broken(const Json& events);
  // The same when nothing is on the screen any more: every banner has left it, once, and nothing of it is held.
  std::string brokenAtRest();

  std::size_t count() const { return springboard::bannerCount(); }

 private:
  // A banner as far as it was seen.
  struct Seen {
    objc::Weak<BannerController> controller;
    objc::Weak<BrimContainer> banner;
    int platformDismissals = 0;
    bool leftByItsOwnTransition = false;
    std::optional<double> leavingSince;
    bool hadBanner = false;
    // It need not go by itself: its request said so, or a finger has been on it.
    bool mayStay = false;
  };

  std::string brokenBy(std::size_t number, BannerController* controller);
  std::string brokenFlags(BannerController* controller, bool isOnScreen) const;
  void meet();
  void count(const Json& events);

  std::map<std::size_t, Seen> seen;
  std::size_t met = 0;
};

}  // namespace test
