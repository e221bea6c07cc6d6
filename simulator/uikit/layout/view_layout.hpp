// When views are laid out: what is dirty, and the passes that clean it.
#pragma once

#include "simulator/uikit/views/view_record.hpp"

namespace uikit {

// Something that the constraints of the view's tree depend on has changed.
void constraintsChanged(const UIView* view);
// The view's subviews are to be placed in the next layout.
void needLayout(UIView* view);
void layoutIfNeeded(UIView* view);

}  // namespace uikit
