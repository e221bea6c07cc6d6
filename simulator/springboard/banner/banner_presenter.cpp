#include "simulator/springboard/banner/banner_presenter.hpp"

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <vector>

#include "simulator/base/event_log.hpp"
#include "simulator/foundation/clock.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/springboard/banner/banner_gestures.hpp"
#include "simulator/springboard/banner/banner_window.hpp"
#include "simulator/springboard/banner/long_look_presentation.hpp"
#include "simulator/springboard/banner/notification_view.hpp"
#include "simulator/uikit/rendering/animation_frames.hpp"

namespace springboard {

namespace {

using Controller = NCNotificationShortLookViewController;

constexpr double slideSeconds = 0.3;
constexpr double automaticDismissalSeconds = 5;
// The time between the dismissal of a banner and the release of its controller. The phone also releases the controller
// some time after the dismissal.
constexpr double secondsUntilRelease = 1;
// The maximum number of banners whose controllers exist. While a stepped clock is stopped, no dismissal is completed,
// so controllers accumulate, and presenting a banner takes longer with each controller.
constexpr std::size_t maxBanners = 256;

enum class Stage { Presented, Dismissing, Dismissed };

struct Banner {
  objc::Ref<Controller> controller;
  Stage stage = Stage::Presented;
};

// The banners whose controllers have not been released. The keys are the numbers of the banners.
std::map<std::size_t, Banner>& banners() {
  static std::map<std::size_t, Banner>& retained = *new std::map<std::size_t, Banner>;
  return retained;
}

std::size_t lastNumber = 0;

std::vector<std::function<void(std::size_t)>>& releaseObservers() {
  static auto& observers = *new std::vector<std::function<void(std::size_t)>>;
  return observers;
}

void animateTo(UIView* view, const CGRect& frame, objc::Block<void(bool)>* completion) {
  const auto retained = objc::retain(view);
  UIView::animate(slideSeconds, objc::block([retained, frame] { retained->setFrame(frame); }), completion);
}

// Makes a banner visible in the run-loop iteration in which it is presented. The slide begins high above the screen, so
// the banner would otherwise appear only after half of the slide. With a stepped clock, the whole slide is shown,
// because the times in scripts are relative to the presentation.
void startSlideAtEdge(std::size_t number) {
  if (foundation::clock::mode() == foundation::ClockMode::Stepped) return;
  foundation::onMainThread([number] {
    if (isBannerOnScreen(number) && !isBannerBeingDismissed(number))
      uikit::skipInvisibleFrames(banners().at(number).controller->view());
  });
}

void recordDismissal(std::size_t number, NSInteger transition) {
  base::recordEvent("dismiss", {{"controller", number}, {"transition", transition}});
}

void release(std::size_t number) {
  if (!banners().contains(number)) return;
  for (const auto& observer : releaseObservers()) observer(number);
  banners().erase(number);
}

void removeBanner(std::size_t number) {
  Banner& banner = banners().at(number);
  banner.stage = Stage::Dismissed;
  if (showsLongLook(banner.controller)) longLookPresentation().dismiss(LongLookChange::Immediate);
  banner.controller->view()->removeFromSuperview();
  hideBannerWindowIfEmpty();
  foundation::onMainThreadAfter(secondsUntilRelease, [number] { release(number); });
}

void reportFinished(const objc::BlockRef<void(bool)>& completion) {
  if (completion.get() != nullptr) foundation::onMainThread([completion] { (*completion.get())(true); });
}

void slideOut(std::size_t number, const objc::BlockRef<void(bool)>& completion) {
  Banner& banner = banners().at(number);
  banner.stage = Stage::Dismissing;
  if (showsLongLook(banner.controller)) longLookPresentation().dismiss(LongLookChange::Animated);
  animateTo(banner.controller->view(), hiddenBannerFrame(), objc::block([number, completion](bool) {
              if (isBannerOnScreen(number)) removeBanner(number);
              reportFinished(completion);
            }));
}

bool dismissesAutomatically(const Controller* controller) {
  const NCNotificationOptions* options = controller->notificationRequest()->options();
  return options == nullptr || options->dismissAutomatically();
}

void scheduleDismissal(std::size_t number) {
  foundation::onMainThreadAfter(automaticDismissalSeconds, [number] {
    if (!isBannerOnScreen(number) || showsLongLook(banners().at(number).controller)) return;
    banners().at(number).controller->dismissViewController(NSInteger(Transition::SlideOut), nullptr);
  });
}

void layOutContent(const Controller* controller) {
  NCNotificationShortLookView* content = contentViewOf(controller->view());
  const CGFloat width = restingBannerFrame().size.width;
  content->setFrame({{}, {width, heightOfShortLookView(content, width)}});
}

// Removes the oldest banners, without an animation, until another banner can be presented.
void removeExcessBanners() {
  while (banners().size() >= maxBanners) {
    const std::size_t number = banners().begin()->first;
    const Stage stage = banners().begin()->second.stage;
    if (stage == Stage::Presented) recordDismissal(number, NSInteger(Transition::None));
    if (stage != Stage::Dismissed) removeBanner(number);
    release(number);
  }
}

template <class Predicate>
void dismissWhere(const Predicate& matches) {
  std::vector<objc::Ref<Controller>> matching;
  for (const auto& [number, banner] : banners())
    if (banner.stage == Stage::Presented && matches(banner.controller)) matching.push_back(banner.controller);
  for (const auto& controller : matching) controller->dismissViewController(NSInteger(Transition::SlideOut), nullptr);
}

}  // namespace

std::size_t presentBanner(Controller* controller) {
  dismissAllBanners();
  removeExcessBanners();
  const std::size_t number = ++lastNumber;
  objc::state<NCNotificationViewController>(controller).bannerNumber = number;
  banners()[number].controller = objc::retain(controller);

  UIView* view = controller->view();
  addBannerGestures(controller, view);
  view->setFrame(hiddenBannerFrame());
  layOutContent(controller);
  addToBannerWindow(view);
  animateTo(view, restingBannerFrame(), nullptr);
  startSlideAtEdge(number);
  if (dismissesAutomatically(controller)) scheduleDismissal(number);
  return number;
}

void dismissBanner(Controller* controller, NSInteger transition, objc::Block<void(bool)>* completion) {
  const std::size_t number = numberOfBanner(controller);
  if (!isBannerOnScreen(number)) return;
  const bool isBeingDismissed = banners().at(number).stage == Stage::Dismissing;
  if (isBeingDismissed && Transition(transition) != Transition::None) return;
  recordDismissal(number, transition);
  const objc::BlockRef<void(bool)> retainedCompletion(completion);
  if (Transition(transition) == Transition::None) {
    removeBanner(number);
    reportFinished(retainedCompletion);
  } else {
    slideOut(number, retainedCompletion);
  }
}

void dismissAllBanners() {
  dismissWhere([](const Controller*) { return true; });
}

void dismissBannersOf(const NotificationKey& key) {
  dismissWhere([&key](const Controller* controller) { return keyOf(controller->notificationRequest()) == key; });
}

std::size_t numberOfBanner(const NCNotificationViewController* controller) {
  return objc::state(controller).bannerNumber;
}

std::size_t bannerCount() { return lastNumber; }

objc::Ref<Controller> bannerController(std::size_t number) {
  const auto found = banners().find(number);
  return found == banners().end() ? nullptr : found->second.controller;
}

bool isBannerOnScreen(std::size_t number) {
  const auto found = banners().find(number);
  return found != banners().end() && found->second.stage != Stage::Dismissed;
}

bool isBannerBeingDismissed(std::size_t number) {
  const auto found = banners().find(number);
  return found != banners().end() && found->second.stage == Stage::Dismissing;
}

bool isAnyBannerOnScreen() {
  return std::ranges::any_of(banners(), [](const auto& entry) { return entry.second.stage != Stage::Dismissed; });
}

void observeBannerReleases(std::function<void(std::size_t)> observer) {
  releaseObservers().push_back(std::move(observer));
}

}  // namespace springboard
