// A cell of the notification list. It shows the latest notification of a group as a card and, below it, the edges of
// the cards behind that card. Lengths are in points. Main thread.
#pragma once

#include "simulator/springboard/banner/notification_view_controller.hpp"
#include "simulator/springboard/list/cell_buttons.hpp"
#include "simulator/springboard/services/notification_list.hpp"

struct NotificationListCellState {
  springboard::NotificationGroup group;
  objc::Ref<NCNotificationShortLookViewController> controller;
  objc::Ref<springboard::CellButtons> buttons;  // nil until the cell is swiped for the first time
  CGFloat revealed = 0;                         // the distance by which the cards have moved aside
};

class NCNotificationListCell : public objc::Interface<"NCNotificationListCell", UIView> {};
template <>
struct objc::StateOf<NCNotificationListCell> {
  using Type = NotificationListCellState;
};

namespace springboard {

// Creates a cell of this width, whose height fits the group. The group must not be empty. If it contains one
// notification, a tap on the card opens the application.
objc::Ref<NCNotificationListCell> makeListCell(const NotificationGroup& group, CGFloat width);

// Updates the displayed age of the notification to the current time.
void refreshDate(const NCNotificationListCell* cell);

// Moves the cards of the cell aside (to the left in left-to-right languages), and places the buttons in the revealed
// part. Can be called in an animation block.
void revealButtons(NCNotificationListCell* cell, CGFloat distance);
// Opens the long look of the cell's latest notification.
void openLongLook(const NCNotificationListCell* cell);
// Executes the clear action of each notification in the cell. Withdraws a notification that has no clear action.
void clearNotifications(const NCNotificationListCell* cell);

void defineListCell();

}  // namespace springboard
