// The view of the notification list. It shows one cell for each group, from top to bottom. A tap on a group of several
// notifications unfolds the group. A horizontal swipe over a cell reveals buttons that open the long look of the
// notification and clear the notifications. Lengths are in points. Main thread.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/ui_view.hpp"
#include "simulator/springboard/list/notification_list_cell.hpp"
#include "simulator/springboard/services/notification_list.hpp"

// The section and the thread of a conversation.
using ListedConversation = std::pair<std::string, std::string>;

struct NotificationListViewState {
  std::vector<springboard::NotificationGroup> groups;
  std::vector<ListedConversation> unfolded;
  CGFloat contentHeight = 0;  // the height of the views that have been created
  bool isComplete = true;     // whether all groups have a cell
  bool animatesNextChange = false;
  std::function<void()> contentChanged;      // called after the user has unfolded or folded a group
  objc::Ref<NCNotificationListCell> swiped;  // the cell whose buttons are visible
  CGFloat revealedBefore = 0;                // the distance by which its cards had moved aside when the swipe began
};

class NCNotificationListView : public objc::Interface<"NCNotificationListView", UIView> {};
template <>
struct objc::StateOf<NCNotificationListView> {
  using Type = NotificationListViewState;
};

namespace springboard {

objc::Ref<NCNotificationListView> makeListView(const CGRect& frame);

// Shows the groups. A group that does not fit into the view has no cell. The size of the view does not change.
void showGroups(NCNotificationListView* view, const std::vector<NotificationGroup>& groups);
// Creates the cells that fit into the view. Call this after the height of the view has changed.
void fillList(NCNotificationListView* view);

// Begins a horizontal swipe at a point of the view. Returns false if there is no cell at this point. A swipe over
// another cell hides the buttons of the previous one.
bool beginSwipe(NCNotificationListView* view, CGPoint point);
// Moves the cards of the swiped cell with the finger. A positive translation is to the right.
void swipe(NCNotificationListView* view, CGFloat translation);
// Ends the swipe: shows the buttons, hides them, or clears the notifications of the cell. A positive speed is to the
// right, in points per second.
void endSwipe(NCNotificationListView* view, CGFloat velocity);
// Hides the buttons of the swiped cell, if any.
void hideButtons(NCNotificationListView* view);

void defineListView();

}  // namespace springboard
