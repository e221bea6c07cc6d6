// Checks the invariants of banners, which hold after every script command, regardless of the earlier commands.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "tests/library/controllers.hpp"
#include "tests/library/phone.hpp"

namespace test {

class BannerInvariants {
 public:
  // Call before each drag. A drag can expand every banner on screen, and an expanded banner stays on screen.
  void expectDrag();
  // Checks every banner, and the events since the previous call. Returns a description of the first violation, empty if
  // there is none.
  std::string violation(const Json& events);
  // Checks a screen without banners: each banner was dismissed exactly once, and no controller or view of a banner
  // still exists. Later checks ignore these banners. Returns a description of the first violation, empty if there is
  // none.
  std::string violationOnEmptyScreen();

  std::size_t bannerCount() const { return springboard::bannerCount(); }

 private:
  // The results of the earlier checks of a banner.
  struct History {
    objc::Weak<BannerController> controller;
    objc::Weak<BrimContainer> banner;
    int platformDismissals = 0;
    bool usedLibraryTransition = false;
    // The time of the first check that found the dismissal in progress. No value while the banner is not being
    // dismissed.
    std::optional<double> dismissingSince;
    bool hadBanner = false;
    // Whether the banner can remain on screen after its timer has fired: its request forbids automatic dismissal, or a
    // drag may have expanded the banner.
    bool canStay = false;
    // The request forbids automatic dismissal, and the user has not dragged the banner.
    bool mustStay = false;
  };

  std::string violationBy(std::size_t number, BannerController* controller);
  std::string flagViolation(BannerController* controller, bool isOnScreen) const;
  void addNewBanners();
  void countDismissals(const Json& events);

  // The key is the controller's number.
  std::map<std::size_t, History> histories_;
  std::size_t knownBanners_ = 0;
};

}  // namespace test
