// When views are laid out: what is dirty, and the passes that clean it.
#pragma once

#include "simulator/uikit/view_record.hpp"

namespace uikit {

// Something that the constraints of the view's tree depend on has changed.
void constraintsChanged(const UIView* view);
void layoutIfNeeded(UIView* view);

}  // namespace uikit
