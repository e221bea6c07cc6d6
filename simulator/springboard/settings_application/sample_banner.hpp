// A sample banner: the view of a real banner controller, including the library's additions. The banner is not
// presented. It shows the effect of the stored settings. Main thread.
//
// The sample has no number, so scripts cannot refer to it as a controller. It receives no touches, and neither
// notifications nor the library's commands. It is not in the list of notifications, plays no sound and never dismisses
// itself.
#pragma once

#include "objc/class_definition.hpp"
#include "platform/ui_view.hpp"
#include "simulator/springboard/banner/banner_window.hpp"
#include "simulator/springboard/banner/notification_view_controller.hpp"

struct SampleBannerState {
  SampleBannerState() = default;
  ~SampleBannerState();
  SampleBannerState(const SampleBannerState&) = delete;
  SampleBannerState& operator=(const SampleBannerState&) = delete;

  objc::Ref<NCNotificationShortLookViewController> controller;
  bool isUpdateScheduled = false;
};
class SBSampleBannerView : public objc::Interface<"SBSampleBannerView", UIView> {};
template <>
struct objc::StateOf<SBSampleBannerView> {
  using Type = SampleBannerState;
};

namespace springboard {

// Creates the view, with the frame of a banner. When a setting changes, a new banner replaces the banner in the view.
// The replacement is postponed while a presented banner is on the screen, because otherwise the library would treat the
// sample as the newest banner.
objc::Ref<SBSampleBannerView> makeSampleBanner();

void defineSampleBanner();

}  // namespace springboard
