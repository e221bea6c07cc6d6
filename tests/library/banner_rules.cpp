#include "tests/library/banner_rules.hpp"

#include "simulator/foundation/main_queue.hpp"

namespace test {

namespace {

// Of fifteen lines, which is as many as a banner shows.
constexpr double maxDismissal = 0.7 + 15 * 0.02 + 0.01;

std::size_t containersIn(const UIView* view) {
  std::size_t found = 0;
  const NSArray* subviews = view->subviews();
  for (NSUInteger index = 0; index < subviews->count(); ++index)
    if (objc::as<BrimContainer>(subviews->objectAtIndex(index)) != nullptr) ++found;
  return found;
}

}  // namespace

void BannerRules::meet() {
  for (; met < springboard::bannerCount(); ++met) {
    const auto controller = controllerOf(static_cast<int>(met + 1));
    Seen& banner = seen[met + 1];
    banner.controller = controller.get();
    if (controller != nullptr) banner.mayStay = !controller->shouldAutoDismiss();
  }
}

void BannerRules::count(const Json& events) {
  for (const Json& event : eventsOf(events, "dismiss")) {
    Seen& banner = seen[event.at("controller").get<std::size_t>()];
    ++banner.platformDismissals;
    banner.leftByItsOwnTransition = event.at("transition") == 0;
  }
}

void BannerRules::expectDrag() {
  const objc::AutoreleasePool pool;
  for (auto& [number, banner] : seen) {
    const auto controller = banner.controller.lock();
    if (controller != nullptr && controller->brimView() != nullptr) banner.mayStay = true;
  }
}

std::string BannerRules::brokenFlags(BannerController* controller, bool isOnScreen) const {
  if (controller->isDismissing() && !controller->dismissCalled()) return "is dismissing though nothing asked for it";
  if (controller->isDismissing() && !controller->autoDimissTriggered()) return "is dismissing without leave";
  if (controller->autoDimissTriggered() && !controller->dismissCalled()) return "has leave though nothing asked";
  if (controller->hasDismissed() && isOnScreen) return "has dismissed and is on screen";
  if (controller->hasDismissed() && controller->brimView() != nullptr) return "has dismissed and has a banner";
  if (controller->brimView() != nullptr && controller->brimIdentifier() == nullptr) return "has a banner but no name";
  return "";
}

std::string BannerRules::brokenBy(std::size_t number, BannerController* controller) {
  Seen& known = seen[number];
  BrimContainer* banner = controller->brimView();
  const bool isOnScreen = springboard::isBannerOnScreen(number);
  const std::size_t attached = containersIn(controller->view());
  if (known.platformDismissals > 1) return "was dismissed more than once";
  if (known.platformDismissals == 1 && !known.leftByItsOwnTransition) return "was dismissed by the platform's way";
  if (known.platformDismissals == 1 && isOnScreen) return "was dismissed and is on screen";
  if (attached > 1) return "has more than one banner attached";
  if (attached == 1 && banner == nullptr) return "has let go of a banner that is still attached";
  if (banner != nullptr && attached == 0) return "holds a banner that is not attached";
  if (banner != nullptr && !isOnScreen) return "has left the screen with its banner";
  if (banner != nullptr) {
    if (known.hadBanner && known.banner.lock().get() != banner) return "has got a second banner";
    known.hadBanner = true;
    known.banner = banner;
  } else if (known.hadBanner && isOnScreen && !controller->dismissCalled()) {
    return "has lost its banner though nothing asked for it";
  }
  if (banner == nullptr || !controller->isDismissing())
    known.leavingSince.reset();
  else if (!known.leavingSince)
    known.leavingSince = foundation::now();
  else if (foundation::now() - *known.leavingSince > maxDismissal)
    return "does not get off the screen";
  return brokenFlags(controller, isOnScreen);
}

std::string BannerRules::broken(const Json& events) {
  const objc::AutoreleasePool pool;
  meet();
  count(events);
  bool someMayStay = false;
  for (std::size_t number = 1; number <= met; ++number) {
    const auto controller = controllerOf(static_cast<int>(number));
    if (controller == nullptr) continue;
    if (std::string problem = brokenBy(number, controller); !problem.empty())
      return "controller " + std::to_string(number) + " " + problem;
    someMayStay = someMayStay || (controller->brimView() != nullptr && seen[number].mayStay);
  }
  if (!someMayStay && !BrimContainer::DismissNotification()) return "later banners are held back for no banner";
  return "";
}

std::string BannerRules::brokenAtRest() {
  for (const auto& [number, banner] : seen) {
    const std::string who = "controller " + std::to_string(number) + " ";
    if (banner.platformDismissals != 1)
      return who + "was dismissed " + std::to_string(banner.platformDismissals) + " times";
    if (banner.controller.lock() != nullptr) return who + "is still held";
    if (banner.banner.lock() != nullptr) return who + "has a banner that is still held";
  }
  seen.clear();
  return springboard::isAnyBannerOnScreen() ? "a banner is still on screen" : "";
}

}  // namespace test
