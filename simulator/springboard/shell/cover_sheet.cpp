#include "simulator/springboard/shell/cover_sheet.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/ui_device.hpp"
#include "simulator/foundation/main_queue.hpp"
#include "simulator/springboard/banner/banner_window.hpp"
#include "simulator/springboard/long_look/long_look_presenter.hpp"
#include "simulator/springboard/services/notification_dispatcher.hpp"
#include "simulator/springboard/shell/clocks.hpp"
#include "simulator/springboard/shell/home_indicator.hpp"
#include "simulator/springboard/shell/wallpaper_view.hpp"
#include "simulator/uikit/animation/animation_group.hpp"
#include "simulator/uikit/environment/environment.hpp"

namespace springboard {

namespace {

using Sheet = SBCoverSheetController;

// The window level of the cover sheet. It is between the levels of the home screen and the status bar.
constexpr double coverSheetLevel = 900;

// White text has a contrast of 4.5:1 on a white wallpaper that is darkened by this opacity.
constexpr CGFloat dimmingAlpha = 0.55;
constexpr CGFloat clockTop = 40;
constexpr CGFloat clockHeight = 90;
constexpr CGFloat dayHeight = 26;
constexpr CGFloat listGap = 28;
// The height of the area at the lower edge of the screen on a device without a home indicator.
constexpr CGFloat minLowerEdgeHeight = 20;

objc::Ref<Sheet>& current() {
  static objc::Ref<Sheet>& sheet = *new objc::Ref<Sheet>;
  return sheet;
}

const base::DeviceProfile& device() { return uikit::environment().device; }

CGFloat lowerEdgeHeight() { return std::max<CGFloat>(device().safeArea.bottom, minLowerEdgeHeight); }

Grouping groupingOfSystem() { return systemVersionIsBelow("12.0"_ns) ? Grouping::None : Grouping::ByConversation; }

// Schedules a refresh after all work that is due, so that several changes cause only one refresh, and so that no caller
// of the list is using a cell during the refresh.
void scheduleRefresh() {
  static bool isPending = false;
  if (std::exchange(isPending, true)) return;
  foundation::onMainThread([] {
    isPending = false;
    refreshCoverSheet();
  });
}

// Darkens the wallpaper, because the time and the date are white.
void addDimming(UIWindow* window) {
  const auto dimming = UIView::withFrame<UIView>(window->bounds());
  dimming->setBackgroundColor(UIColor::withRed(0, 0, 0, dimmingAlpha));
  dimming->setUserInteractionEnabled(false);
  window->addSubview(dimming);
}

// Adds a centered label that is as wide as the window.
objc::Ref<UILabel> addLabel(UIWindow* window, CGFloat fontSize) {
  auto label = UIView::withFrame<UILabel>({});
  label->setFont(UIFont::systemFontOfSize(fontSize));
  label->setTextColor(UIColor::withRed(1, 1, 1, 1));
  label->setTextAlignment(NSTextAlignment::Center);
  window->addSubview(label);
  return label;
}

// Places the time, the date and the list, which scroll together. The list always extends to the lower edge of the
// screen.
void layOut(const CoverSheetState& state, CGFloat offset) {
  const CGSize screen = device().screen;
  CGFloat top = device().safeArea.top + clockTop - offset;
  state.clock->setFrame({{0, top}, {screen.width, clockHeight}});
  top += clockHeight;
  state.day->setFrame({{0, top}, {screen.width, dayHeight}});
  top += dayHeight + listGap;
  state.list->setFrame({{0, top}, {screen.width, std::max<CGFloat>(screen.height - top, 0)}});
}

CGFloat listTop() { return device().safeArea.top + clockTop + clockHeight + dayHeight + listGap; }

// Creates the cells that are visible at the offset `wanted`, and returns the largest offset for the existing cells.
CGFloat maxOffset(const CoverSheetState& state, CGFloat wanted) {
  uikit::runWithoutAnimation(objc::block([&state, wanted] {
    const CGRect frame = state.list->frame();
    const CGFloat height = device().screen.height - listTop() + std::max<CGFloat>(wanted, 0);
    if (height <= frame.size.height) return;
    state.list->setFrame({frame.origin, {frame.size.width, height}});
    fillList(state.list);
    state.list->setFrame(frame);
  }));
  const CGFloat bottom = listTop() + objc::state(state.list.get()).contentHeight + lowerEdgeHeight();
  return std::max<CGFloat>(bottom - device().screen.height, 0);
}

// The functions refer to the state, which outlives the scroller because it owns the scroller.
ScrolledContent scrolledContentOf(Sheet* sheet) {
  return {.viewport = [] { return device().screen.height; },
          .maxOffset = [sheet](CGFloat wanted) { return maxOffset(objc::state(sheet), wanted); },
          .show = [sheet](CGFloat offset) { layOut(objc::state(sheet), offset); }};
}

CoverSheetDrag draggedPart(const CoverSheetState& state, UIPanGestureRecognizer* recognizer) {
  const CGPoint moved = recognizer->translationInView(state.window);
  const auto inWindow = objc::send<CGPoint, "locationInView:">(recognizer, static_cast<UIView*>(state.window));
  if (state.handleLowerEdgeDrag && inWindow.y - moved.y >= device().screen.height - lowerEdgeHeight())
    return CoverSheetDrag::Sheet;
  if (openedShortLook() != nullptr) return CoverSheetDrag::None;
  const auto inList = objc::send<CGPoint, "locationInView:">(recognizer, static_cast<UIView*>(state.list));
  if (std::abs(moved.x) > std::abs(moved.y) && beginSwipe(state.list, {inList.x - moved.x, inList.y - moved.y}))
    return CoverSheetDrag::Cell;
  return CoverSheetDrag::List;
}

void scroll(const CoverSheetState& state, UIPanGestureRecognizer* recognizer) {
  switch (recognizer->state()) {
    case UIGestureRecognizerState::Began:
      hideButtons(state.list);
      state.scroller->beginDrag();
      [[fallthrough]];
    case UIGestureRecognizerState::Changed:
      return state.scroller->drag(recognizer->translationInView(state.window).y);
    default:
      return state.scroller->endDrag(
          objc::send<CGPoint, "velocityInView:">(recognizer, static_cast<UIView*>(state.window)).y);
  }
}

void swipeCell(const CoverSheetState& state, UIPanGestureRecognizer* recognizer) {
  switch (recognizer->state()) {
    case UIGestureRecognizerState::Began:
    case UIGestureRecognizerState::Changed:
      return swipe(state.list, recognizer->translationInView(state.window).x);
    case UIGestureRecognizerState::Cancelled:
      return hideButtons(state.list);
    default:
      return endSwipe(state.list,
                      objc::send<CGPoint, "velocityInView:">(recognizer, static_cast<UIView*>(state.window)).x);
  }
}

void handlePan(Sheet* self, UIPanGestureRecognizer* recognizer) {
  CoverSheetState& state = objc::state(self);
  const bool begins = recognizer->state() == UIGestureRecognizerState::Began;
  if (begins) state.drag = draggedPart(state, recognizer);
  if (state.drag == CoverSheetDrag::Sheet) return state.handleLowerEdgeDrag(recognizer);
  if (state.drag == CoverSheetDrag::Cell) return swipeCell(state, recognizer);
  if (state.drag == CoverSheetDrag::List) scroll(state, recognizer);
}

}  // namespace

objc::Ref<Sheet> makeCoverSheet(std::function<void()> swipedUp) {
  auto sheet = objc::make<Sheet>();
  CoverSheetState& state = objc::state(sheet.get());
  const CGRect screen = {{}, device().screen};
  state.window = UIView::withFrame<UIWindow>(screen);
  objc::send<void, "setWindowLevel:">(state.window.get(), CGFloat{coverSheetLevel});
  state.window->addSubview(makeWallpaperView());
  addDimming(state.window);
  state.clock = addLabel(state.window, 76);
  state.day = addLabel(state.window, 20);
  state.list = makeListView({});
  state.window->addSubview(state.list);
  state.scroller = std::make_unique<Scroller>(scrolledContentOf(sheet));
  objc::state(state.list.get()).contentChanged = [sheet = sheet.get()] { objc::state(sheet).scroller->clamp(); };
  layOut(state, 0);
  addHomeIndicator(state.window, IndicatorColor::White, std::move(swipedUp));
  state.window->addGestureRecognizer(
      UIPanGestureRecognizer::withTarget(sheet, objc::selector<"_handlePanOnCoverSheet:">()));
  current() = sheet;
  state.listObserver = NCNotificationDispatcher::shared()->observeList(&scheduleRefresh);
  refreshCoverSheet();
  return sheet;
}

void removeCoverSheet(Sheet* sheet) {
  const objc::Ref<Sheet> retained = objc::retain(sheet);
  if (current().get() == sheet) {
    dismissLongLook(LongLookChange::Immediate);
    NCNotificationDispatcher::shared()->stopObservingList(objc::state(sheet).listObserver);
    current() = nullptr;
  }
  hideWindowAboveHomeScreen(objc::state(sheet).window);
}

void refreshCoverSheet() {
  const objc::Ref<Sheet> sheet = current();
  if (sheet == nullptr) return;
  const CoverSheetState& state = objc::state(sheet.get());
  state.clock->setText(currentTime());
  state.day->setText(currentDay());
  showGroups(state.list, NCNotificationDispatcher::shared()->list().groups(groupingOfSystem()));
  state.scroller->clamp();
}

void defineCoverSheet() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"_handlePanOnCoverSheet:", &handlePan>(),
  };
  objc::defineClassWithState<Sheet>(methods);
}

}  // namespace springboard
