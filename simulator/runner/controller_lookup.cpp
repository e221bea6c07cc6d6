#include "simulator/runner/controller_lookup.hpp"

#include "simulator/runner/banner_inspection.hpp"

namespace runner {

namespace {

std::string validNumbers() {
  const std::size_t count = springboard::bannerCount();
  if (count == 0) return "none has been presented yet";
  return count == 1 ? "the only controller is 1" : "the controllers are 1 to " + std::to_string(count);
}

}  // namespace

std::size_t bannerNumber(const Json& value) {
  if (value < 1 || value > springboard::bannerCount())
    throw CommandError("there is no controller " + value.dump() + "; " + validNumbers());
  return value.get<std::size_t>();
}

objc::Ref<NCNotificationShortLookViewController> liveController(const Json& value) {
  const std::size_t number = bannerNumber(value);
  auto controller = springboard::bannerController(number);
  if (controller == nullptr)
    throw CommandError("controller " + std::to_string(number) + " was dismissed and no longer exists");
  return controller;
}

objc::Ref<NCNotificationShortLookViewController> controllerOnScreen(const Json& value) {
  const std::size_t number = bannerNumber(value);
  if (!springboard::isBannerOnScreen(number))
    throw CommandError("controller " + std::to_string(number) + " is no longer on screen");
  return springboard::bannerController(number);
}

objc::Ref<NCNotificationShortLookViewController> newestControllerOnScreen() {
  for (std::size_t number = springboard::bannerCount(); number > 0; --number)
    if (springboard::isBannerOnScreen(number) && visibleBanner(springboard::bannerController(number)) != nullptr)
      return springboard::bannerController(number);
  throw CommandError("no banner is on screen; present one first");
}

}  // namespace runner
