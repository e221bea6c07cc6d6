// The cover sheet: a window with the time, the date and the notification list over the wallpaper. It is the lock screen
// of a locked phone and the notification center of an unlocked one. At most one cover sheet exists. Lengths are in
// points. Main thread.
#pragma once

#include <functional>
#include <memory>

#include "objc/class_definition.hpp"
#include "platform/ui_label.hpp"
#include "platform/ui_window.hpp"
#include "simulator/springboard/list/notification_list_view.hpp"
#include "simulator/springboard/platter/scrolling.hpp"

// What the finger moves during a drag on the cover sheet.
enum class CoverSheetDrag { None, List, Cell, Sheet };

struct CoverSheetState {
  objc::Ref<UIWindow> window;
  objc::Ref<UILabel> clock;
  objc::Ref<UILabel> day;
  objc::Ref<NCNotificationListView> list;
  std::size_t listObserver = 0;  // the number of the observer of the dispatcher's list
  std::unique_ptr<springboard::Scroller> scroller;
  CoverSheetDrag drag = CoverSheetDrag::None;
  // Handles a drag that begins at the lower edge of the screen. If null, such a drag is handled like any other drag.
  std::function<void(UIPanGestureRecognizer* recognizer)> handleLowerEdgeDrag;
};

class SBCoverSheetController : public objc::Interface<"SBCoverSheetController", NSObject> {};
template <>
struct objc::StateOf<SBCoverSheetController> {
  using Type = CoverSheetState;
};

namespace springboard {

// Creates the cover sheet, whose window is hidden, and updates its list when notifications change. `swipedUp` is called
// after a swipe from the home indicator. If it is null, the home indicator accepts no touches.
objc::Ref<SBCoverSheetController> makeCoverSheet(std::function<void()> swipedUp);
// Hides the window and stops the updates. The controller remains valid.
void removeCoverSheet(SBCoverSheetController* sheet);
// Updates the time and the list of the current cover sheet, if there is one.
void refreshCoverSheet();

void defineCoverSheet();

}  // namespace springboard
