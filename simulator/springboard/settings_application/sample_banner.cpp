#include "simulator/springboard/settings_application/sample_banner.hpp"

#include "platform/ns_notification_center.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/foundation/preference_domain.hpp"
#include "simulator/springboard/banner/banner_presenter.hpp"
#include "simulator/springboard/banner/notification_view.hpp"
#include "simulator/springboard/services/notification_description.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace {

foundation::PreferenceDomain& preferences() { return foundation::PreferenceDomain::named("com.marrowgate.brimprefs"); }

}  // namespace

SampleBannerState::~SampleBannerState() { preferences().stopObserving(this); }

namespace springboard {

namespace {

using Controller = NCNotificationShortLookViewController;

constexpr double secondsUntilRetry = 0.5;

objc::Ref<Controller> makeController() {
  NotificationDescription description;
  description.section = "com.apple.MobileSMS";
  description.title = "Anna Weber";
  description.message = "Are we still on for lunch? I found a place by the river that has tables outside.";
  return makeShortLookController(makeRequest(description, nullptr));
}

// Prevents the library from dismissing older banners when this banner appears.
void identifyAsSample(Controller* controller) {
  if (respondsTo<"setBrimIdentifier:">(controller)) objc::send<void, "setBrimIdentifier:">(controller, "sample"_ns);
}

// Prevents the library from dismissing the banner automatically and from sending commands to it.
void deactivate(Controller* controller) {
  if (respondsTo<"setDismissCalled:">(controller)) objc::send<void, "setDismissCalled:">(controller, true);
  objc::send<void, "removeObserver:">(NSNotificationCenter::defaultCenter(), static_cast<NSObject*>(controller));
}

// The library adds its banner to a notification view that is inside a window of this class. The window is never shown.
void attachInHiddenWindow(Controller* controller) {
  const auto window = UIView::withFrame<SBNotificationBannerWindow>({{}, uikit::environment().device.screen});
  identifyAsSample(controller);
  controller->view()->setFrame({{}, restingBannerFrame().size});
  window->addSubview(controller->view());
  deactivate(controller);
  controller->view()->removeFromSuperview();
}

void layOutPlatformContent(Controller* controller) {
  NCNotificationShortLookView* const content = contentViewOf(controller->view());
  const CGFloat width = restingBannerFrame().size.width;
  content->setFrame({{}, {width, heightOfShortLookView(content, width)}});
}

void showNewBanner(SBSampleBannerView* view) {
  objc::Ref<Controller>& controller = objc::state(view).controller;
  if (controller != nullptr) controller->view()->removeFromSuperview();
  controller = makeController();
  layOutPlatformContent(controller);
  attachInHiddenWindow(controller);
  view->addSubview(controller->view());
}

void updateSoon(SBSampleBannerView* view, double seconds) {
  objc::state(view).isUpdateScheduled = true;
  foundation::onMainThreadAfter(seconds, [weak = objc::Weak<SBSampleBannerView>(view)] {
    const objc::Ref<SBSampleBannerView> sample = weak.lock();
    if (sample == nullptr) return;
    if (isAnyBannerOnScreen()) return updateSoon(sample, secondsUntilRetry);
    objc::state(sample.get()).isUpdateScheduled = false;
    showNewBanner(sample);
  });
}

// Runs the update later, because the library may not have read the changed preferences yet.
void settingsChanged(SBSampleBannerView* view) {
  if (!objc::state(view).isUpdateScheduled) updateSoon(view, 0);
}

}  // namespace

objc::Ref<SBSampleBannerView> makeSampleBanner() {
  auto view = UIView::withFrame<SBSampleBannerView>(restingBannerFrame());
  view->setUserInteractionEnabled(false);
  SBSampleBannerView* const borrowed = view;
  preferences().observe(&objc::state(borrowed), [borrowed] { settingsChanged(borrowed); });
  updateSoon(view, 0);
  return view;
}

void defineSampleBanner() { objc::defineClassWithState<SBSampleBannerView>({}); }

}  // namespace springboard
