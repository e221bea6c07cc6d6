#include "tests/library/banner_invariants.hpp"

#include "simulator/foundation/main_queue.hpp"

namespace test {

namespace {

// In seconds. The duration of the longest dismissal, that of a banner with fifteen lines of text, plus a tolerance.
constexpr double maxDismissalTime = 0.7 + 15 * 0.02 + 0.01;

// The number of banners among the direct subviews.
std::size_t containersIn(const UIView* view) {
  std::size_t found = 0;
  const NSArray* subviews = view->subviews();
  for (NSUInteger index = 0; index < subviews->count(); ++index)
    if (objc::as<BrimContainer>(subviews->objectAtIndex(index)) != nullptr) ++found;
  return found;
}

}  // namespace

void BannerInvariants::addNewBanners() {
  for (; knownBanners_ < springboard::bannerCount(); ++knownBanners_) {
    const auto controller = controllerOf(static_cast<int>(knownBanners_ + 1));
    History& banner = histories_[knownBanners_ + 1];
    banner.controller = controller.get();
    if (controller != nullptr) banner.canStay = banner.mustStay = !controller->shouldAutoDismiss();
  }
}

void BannerInvariants::countDismissals(const Json& events) {
  for (const Json& event : eventsOf(events, "dismiss")) {
    History& banner = histories_[event.at("controller").get<std::size_t>()];
    ++banner.platformDismissals;
    banner.usedLibraryTransition = event.at("transition") == 0;
  }
}

void BannerInvariants::expectDrag() {
  const objc::AutoreleasePool pool;
  for (auto& [number, banner] : histories_) {
    const auto controller = banner.controller.lock();
    if (controller != nullptr && controller->brimView() != nullptr) {
      banner.canStay = true;
      banner.mustStay = false;
    }
  }
}

std::string BannerInvariants::flagViolation(BannerController* controller, bool isOnScreen) const {
  if (controller->isDismissing() && !controller->dismissCalled()) return "is dismissing, but dismissCalled is false";
  if (controller->isDismissing() && !controller->autoDimissTriggered())
    return "is dismissing, but autoDimissTriggered is false";
  if (controller->autoDimissTriggered() && !controller->dismissCalled())
    return "has autoDimissTriggered set, but dismissCalled is false";
  if (controller->hasDismissed() && isOnScreen) return "has hasDismissed set, but is on screen";
  if (controller->hasDismissed() && controller->brimView() != nullptr)
    return "has hasDismissed set, but still has a banner";
  if (controller->brimView() != nullptr && controller->brimIdentifier() == nullptr)
    return "has a banner, but no brimIdentifier";
  return "";
}

std::string BannerInvariants::violationBy(std::size_t number, BannerController* controller) {
  History& history = histories_[number];
  BrimContainer* banner = controller->brimView();
  const bool isOnScreen = springboard::isBannerOnScreen(number);
  const std::size_t attached = containersIn(controller->view());
  if (history.platformDismissals > 1) return "was dismissed more than once";
  if (history.platformDismissals == 1 && !history.usedLibraryTransition)
    return "was dismissed with a transition other than the library's";
  if (history.platformDismissals == 1 && isOnScreen) return "was dismissed, but is on screen";
  if (attached > 1) return "has more than one attached banner";
  if (attached == 1 && banner == nullptr) return "has released a banner that is still attached";
  if (banner != nullptr && attached == 0) return "retains a banner that is not attached";
  if (banner != nullptr && !isOnScreen) return "has left the screen, but still has a banner";
  if (banner != nullptr) {
    if (history.hadBanner && history.banner.lock().get() != banner) return "has replaced its banner by another one";
    history.hadBanner = true;
    history.banner = banner;
  } else if (history.hadBanner && isOnScreen && !controller->dismissCalled()) {
    return "has lost its banner, but dismissCalled is false";
  }
  if (banner == nullptr || !controller->isDismissing())
    history.dismissingSince.reset();
  else if (!history.dismissingSince)
    history.dismissingSince = foundation::now();
  else if (foundation::now() - *history.dismissingSince > maxDismissalTime)
    return "is dismissing for too long";
  return flagViolation(controller, isOnScreen);
}

std::string BannerInvariants::violation(const Json& events) {
  const objc::AutoreleasePool pool;
  addNewBanners();
  countDismissals(events);
  bool someCanStay = false;
  bool newestMustStay = false;
  for (std::size_t number = 1; number <= knownBanners_; ++number) {
    const auto controller = controllerOf(static_cast<int>(number));
    if (controller == nullptr) continue;
    if (std::string problem = violationBy(number, controller); !problem.empty())
      return "controller " + std::to_string(number) + " " + problem;
    if (controller->brimView() == nullptr) continue;
    someCanStay = someCanStay || histories_[number].canStay;
    newestMustStay = histories_[number].mustStay && !controller->dismissCalled();
  }
  if (newestMustStay && BrimContainer::DismissNotification())
    return "DismissNotification is true, but the newest banner is persistent";
  if (!someCanStay && !BrimContainer::DismissNotification())
    return "DismissNotification is false, but no banner on screen is persistent or expanded";
  return "";
}

std::string BannerInvariants::violationOnEmptyScreen() {
  for (const auto& [number, banner] : histories_) {
    const std::string name = "controller " + std::to_string(number) + " ";
    if (banner.platformDismissals != 1)
      return name + "was dismissed " + std::to_string(banner.platformDismissals) + " times";
    if (banner.controller.lock() != nullptr) return name + "is not released";
    if (banner.banner.lock() != nullptr) return name + "has a banner that is not released";
  }
  histories_.clear();
  return springboard::isAnyBannerOnScreen() ? "a banner is still on screen" : "";
}

}  // namespace test
