#include "simulator/springboard/list/notification_list_view.hpp"

#include <algorithm>
#include <utility>

#include "objc/class_definition.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/springboard/list/unfolded_header.hpp"
#include "simulator/uikit/accessibility/accessible_element.hpp"
#include "simulator/uikit/views/view.hpp"
#include "simulator/uikit/views/view_geometry.hpp"

namespace springboard {

namespace {

constexpr CGFloat sideMargin = 8;
constexpr CGFloat cellGap = 8;
constexpr double changeSeconds = 0.3;
// The time, in seconds, for which the cards would continue to move at their speed at the end of a swipe.
constexpr double flickSeconds = 0.2;

using List = NCNotificationListView;
using Cell = NCNotificationListCell;
using Views = std::vector<objc::Ref<UIView>>;

Views subviewsOf(const UIView* view) {
  Views views;
  const NSArray* subviews = view->subviews();
  for (NSUInteger index = 0; index < subviews->count(); ++index)
    views.push_back(objc::retain(static_cast<UIView*>(subviews->objectAtIndex(index))));
  return views;
}

// Returns the cell of the group. Reuses the existing cell if there is one, because a touch or an open long look can
// refer to it.
objc::Ref<UIView> cellFor(const NotificationGroup& group, const Views& shown, CGFloat width) {
  for (const objc::Ref<UIView>& view : shown) {
    const auto* cell = objc::as<Cell>(view.get());
    if (cell == nullptr || objc::state(cell).group != group) continue;
    refreshDate(cell);
    return view;
  }
  return makeListCell(group, width);
}

ListedConversation conversationOf(const NotificationGroup& group) {
  return {keyOf(group.front()).section, base::textOf(group.front()->threadIdentifier())};
}

ListedConversation conversationOf(const UnfoldedHeader* header) {
  return {objc::state(header).section, objc::state(header).thread};
}

objc::Ref<UIView> headerFor(const ListedConversation& conversation, const Views& shown, CGFloat width) {
  for (const objc::Ref<UIView>& view : shown)
    if (const auto* header = objc::as<UnfoldedHeader>(view.get()))
      if (conversationOf(header) == conversation) return view;
  return makeUnfoldedHeader(conversation.first, conversation.second, width);
}

bool isUnfolded(const NotificationListViewState& state, const NotificationGroup& group) {
  return group.size() > 1 && std::ranges::find(state.unfolded, conversationOf(group)) != state.unfolded.end();
}

// The views of the list, in order, and their frames.
struct Arrangement {
  Views views;
  std::vector<CGRect> frames;
  CGFloat bottom = 0;

  void append(const objc::Ref<UIView>& view) {
    CGRect frame = view->bounds();
    frame.origin = {sideMargin, frames.empty() ? 0 : bottom + cellGap};
    bottom = frame.origin.y + frame.size.height;
    views.push_back(view);
    frames.push_back(frame);
  }
};

// Arranges the views that begin above the lower edge of the list.
Arrangement arrange(List* list, const Views& shown) {
  NotificationListViewState& state = objc::state(list);
  const CGFloat width = list->bounds().size.width - 2 * sideMargin;
  const CGFloat height = list->bounds().size.height;
  Arrangement arrangement;
  state.isComplete = true;
  const auto hasRoom = [&] {
    state.isComplete = arrangement.views.empty() || arrangement.bottom + cellGap < height;
    return state.isComplete;
  };
  for (const NotificationGroup& group : state.groups) {
    if (!hasRoom()) break;
    if (!isUnfolded(state, group)) {
      arrangement.append(cellFor(group, shown, width));
      continue;
    }
    arrangement.append(headerFor(conversationOf(group), shown, width));
    for (const auto& request : group) {
      if (!hasRoom()) break;
      arrangement.append(cellFor({request}, shown, width));
    }
  }
  state.contentHeight = arrangement.bottom;
  return arrangement;
}

// Sets the frames of views that are new in the list without an animation, so they appear at their final positions.
void addNewViews(List* list, const Arrangement& arrangement, const Views& shown, bool animated) {
  for (std::size_t index = 0; index < arrangement.views.size(); ++index) {
    UIView* view = arrangement.views[index];
    const bool isNew = std::ranges::find(shown, arrangement.views[index]) == shown.end();
    if (isNew) view->setFrame(arrangement.frames[index]);
    if (isNew && animated) view->setAlpha(0);
    list->addSubview(view);
  }
}

void placeViews(const Arrangement& arrangement) {
  for (std::size_t index = 0; index < arrangement.views.size(); ++index) {
    arrangement.views[index]->setFrame(arrangement.frames[index]);
    arrangement.views[index]->setAlpha(1);
  }
}

// While buttons are visible, a tap on any card hides them. Otherwise, a tap on a card opens its application.
void setCardsInteractive(List* list, bool interactive) {
  for (const objc::Ref<UIView>& view : subviewsOf(list))
    if (const auto* cell = objc::as<Cell>(view.get()))
      objc::state(cell).controller->view()->setUserInteractionEnabled(interactive);
}

void update(List* list, bool animated) {
  NotificationListViewState& state = objc::state(list);
  const Views shown = subviewsOf(list);
  const Arrangement arrangement = arrange(list, shown);
  for (const objc::Ref<UIView>& view : shown)
    if (std::ranges::find(arrangement.views, view) == arrangement.views.end()) view->removeFromSuperview();
  if (state.swiped != nullptr && state.swiped->superview() == nullptr) state.swiped = nullptr;
  addNewViews(list, arrangement, shown, animated);
  setCardsInteractive(list, state.swiped == nullptr);
  if (!animated) return placeViews(arrangement);
  UIView::animate(changeSeconds, objc::block([arrangement] { placeViews(arrangement); }));
}

objc::Ref<UIView> viewAt(const List* list, CGPoint point) {
  for (const objc::Ref<UIView>& view : subviewsOf(list))
    if (uikit::contains(view->frame(), point)) return view;
  return nullptr;
}

// Converts between a horizontal distance and the distance by which the cards move aside, in either direction.
CGFloat aside(const UIView* view, CGFloat distance) {
  return uikit::effectiveDirection(view) == uikit::LayoutDirection::RightToLeft ? distance : -distance;
}

void reveal(List* list, CGFloat distance) {
  NotificationListViewState& state = objc::state(list);
  const objc::Ref<Cell> cell = state.swiped;
  if (distance == 0) state.swiped = nullptr;
  setCardsInteractive(list, distance == 0);
  UIView::animate(changeSeconds, objc::block([cell, distance] { revealButtons(cell, distance); }));
}

// Moves the cards of the swiped cell off the screen and clears its notifications.
void clearSwiped(List* list) {
  const objc::Ref<Cell> cell = objc::state(list).swiped;
  const objc::Ref<List> retained = objc::retain(list);
  cell->setUserInteractionEnabled(false);
  UIView::animate(changeSeconds, objc::block([cell] {
                    revealButtons(cell, cell->bounds().size.width + 2 * sideMargin);
                    cell->setAlpha(0);
                  }),
                  objc::block([cell, retained](bool) {
                    objc::state(retained.get()).animatesNextChange = true;
                    clearNotifications(cell);
                  }));
}

void tapButton(List* list, CGPoint point) {
  const objc::Ref<Cell> cell = objc::state(list).swiped;
  const auto button = cellButtonAt(objc::state(cell.get()).buttons, uikit::convertPoint(point, list, cell));
  if (button == CellButton::Clear) return clearSwiped(list);
  reveal(list, 0);
  if (button == CellButton::View) openLongLook(cell);
}

void handleTap(List* self, UITapGestureRecognizer* recognizer) {
  NotificationListViewState& state = objc::state(self);
  const auto point = objc::send<CGPoint, "locationInView:">(recognizer, static_cast<UIView*>(self));
  if (state.swiped != nullptr) return tapButton(self, point);
  const objc::Ref<UIView> view = viewAt(self, point);
  if (view == nullptr) return;
  if (const auto* header = objc::as<UnfoldedHeader>(view.get())) {
    const CGPoint inHeader = uikit::convertPoint(point, self, header);
    if (uikit::contains(objc::state(header).button->frame(), inHeader))
      std::erase(state.unfolded, conversationOf(header));
  } else if (const auto& group = objc::state(static_cast<Cell*>(view.get())).group; group.size() > 1) {
    state.unfolded.push_back(conversationOf(group));
  }
  update(self, true);
  if (state.contentChanged) state.contentChanged();
}

NSString* accessibilityLabel(NCNotificationListView*) { return "Notifications"_ns; }
uikit::AccessibleRole accessibleRole(NCNotificationListView*) { return uikit::AccessibleRole::List; }

}  // namespace

objc::Ref<List> makeListView(const CGRect& frame) {
  auto list = UIView::withFrame<List>(frame);
  list->addGestureRecognizer(UITapGestureRecognizer::withTarget(list, objc::selector<"_handleTapOnList:">()));
  return list;
}

void showGroups(List* view, const std::vector<NotificationGroup>& groups) {
  NotificationListViewState& state = objc::state(view);
  state.groups = groups;
  // Folds each conversation that no longer has several notifications.
  std::erase_if(state.unfolded, [&state](const ListedConversation& conversation) {
    return std::ranges::none_of(state.groups, [&conversation](const NotificationGroup& group) {
      return group.size() > 1 && conversationOf(group) == conversation;
    });
  });
  update(view, std::exchange(state.animatesNextChange, false));
}

void fillList(List* view) {
  if (!objc::state(view).isComplete) update(view, false);
}

bool beginSwipe(List* view, CGPoint point) {
  NotificationListViewState& state = objc::state(view);
  const objc::Ref<UIView> touched = viewAt(view, point);
  auto* cell = touched == nullptr ? nullptr : objc::as<Cell>(touched.get());
  if (cell != state.swiped.get()) hideButtons(view);
  if (cell == nullptr) return false;
  state.swiped = objc::retain(cell);
  state.revealedBefore = objc::state(cell).revealed;
  setCardsInteractive(view, false);
  return true;
}

void swipe(List* view, CGFloat translation) {
  const NotificationListViewState& state = objc::state(view);
  if (state.swiped == nullptr) return;
  revealButtons(state.swiped, std::max<CGFloat>(state.revealedBefore + aside(view, translation), 0));
}

void endSwipe(List* view, CGFloat velocity) {
  const NotificationListViewState& state = objc::state(view);
  if (state.swiped == nullptr) return;
  const CGFloat revealed = objc::state(state.swiped.get()).revealed;
  const CGFloat projected = revealed + aside(view, velocity) * flickSeconds;
  constexpr CGFloat clearedFraction = 0.6;
  if (std::min(revealed * 2, projected) > clearedFraction * view->bounds().size.width) return clearSwiped(view);
  reveal(view, projected > cellButtonsWidth / 2 ? cellButtonsWidth : 0);
}

void hideButtons(List* view) {
  if (objc::state(view).swiped != nullptr) reveal(view, 0);
}

void defineListView() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"_handleTapOnList:", &handleTap>(),
      objc::method<"accessibilityLabel", &accessibilityLabel>(),
      objc::method<"_accessibleRole", &accessibleRole>(),
  };
  defineCellButtons();
  defineUnfoldedHeader();
  objc::defineClassWithState<List>(methods);
}

}  // namespace springboard
