// The row of buttons below a banner's content. It is hidden until the banner is expanded. The reply field has the same
// position and size. Sizes are in points. Main thread.
#pragma once

#include "library/view/brim_container_state.hpp"

inline constexpr CGFloat buttonRowCornerRadius = 18;

// Creates the row with the buttons of an alarm (Snooze, Stop) or of a message (Close, Clear, and Reply or Open).
void layOutButtonRow(BrimContainer* self, BrimContainerState& state);

// Constrains the view to the position and the height of the row.
void placeInButtonRow(BrimContainer* self, const BrimContainerState& state, UIView* view);

// Applies the colors of the color set to all buttons.
void colorButtons(const BrimContainerState& state);

// Sets the alpha of the row and hides the buttons if it is 0. If the banner has no buttons, sets the alpha of the reply
// field instead. Does nothing if the reply field is open.
void setButtonsAlpha(BrimContainer* self, CGFloat alpha);

enum class ButtonVisibility { Hidden, Shown };

// Hides or shows the buttons Close, Clear and Reply.
void setMessageButtonVisibility(const BrimContainerState& state, ButtonVisibility visibility);
