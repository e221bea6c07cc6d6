// The row of buttons below a banner's content. It is hidden until the banner is expanded. The reply field takes the
// same place. Sizes are points. Main thread.
#pragma once

#include "library/view/brim_container_state.hpp"

inline constexpr CGFloat buttonRowCornerRadius = 18;

// Creates the buttons: those of an alarm, or those of a message.
void layOutButtonRow(BrimContainer* self, BrimContainerState& state);

// Gives the view the position and the height of the row.
void placeInButtonRow(BrimContainer* self, const BrimContainerState& state, UIView* view);

// Puts the current colors on all buttons.
void colorButtons(const BrimContainerState& state);

// Without buttons, this is the alpha of the reply field. An open reply field does not change.
void setButtonsAlpha(BrimContainer* self, CGFloat alpha);

// Hides or shows Close, Clear and Reply.
enum class ButtonVisibility { Hidden, Shown };
void setMessageButtonVisibility(const BrimContainerState& state, ButtonVisibility visibility);
