// The buttons that a swipe reveals beside a cell of the notification list. Lengths are in points. Main thread.
#pragma once

#include <optional>

#include "objc/class_definition.hpp"
#include "platform/ui_label.hpp"
#include "platform/ui_view.hpp"

struct CellButtonsState {
  objc::Ref<UIView> view;   // the button that opens the long look
  objc::Ref<UIView> clear;  // the button that clears the notifications of the cell
};

class NCNotificationListCellActionButtonsView
    : public objc::Interface<"NCNotificationListCellActionButtonsView", UIView> {};
template <>
struct objc::StateOf<NCNotificationListCellActionButtonsView> {
  using Type = CellButtonsState;
};

namespace springboard {

using CellButtons = NCNotificationListCellActionButtonsView;

// The total width of the buttons, including the gap between the card and the buttons.
inline constexpr CGFloat cellButtonsWidth = 168;

enum class CellButton { View, Clear };

// Creates the buttons for a cell that shows this number of notifications.
objc::Ref<CellButtons> makeCellButtons(std::size_t notifications);
// Places the buttons in a cell of this size. The cards have revealed a part of the cell that is `revealed` wide.
void placeCellButtons(CellButtons* buttons, CGSize cell, CGFloat revealed);
// Returns the button at a point in the coordinates of the buttons' superview.
std::optional<CellButton> cellButtonAt(const CellButtons* buttons, CGPoint point);

void defineCellButtons();

}  // namespace springboard
