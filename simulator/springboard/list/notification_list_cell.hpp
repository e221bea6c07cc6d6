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

// Creates a cell of this width. The height of the cell fits the group. The group must not be empty. A tap on the card
// of a group of one notification opens its application.
objc::Ref<NCNotificationListCell> makeListCell(const NotificationGroup& group, CGFloat width);

// Updates the displayed age of the notification to the current time.
void refreshDate(const NCNotificationListCell* cell);

// Moves the cards of the cell aside, to the left in languages that are written from left to right, and places the
// buttons in the revealed part. Can be called in an animation block.
void revealButtons(NCNotificationListCell* cell, CGFloat distance);
// Opens the long look of the cell's latest notification.
void openLongLook(const NCNotificationListCell* cell);
// Executes the clear actions of all notifications of the cell. A notification without such an action is withdrawn.
void clearNotifications(const NCNotificationListCell* cell);

void defineListCell();

}  // namespace springboard
