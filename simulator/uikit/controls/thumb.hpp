// The round, white part of a switch or slider that the user moves. Main thread only.
#pragma once

#include "platform/ui_view.hpp"

namespace uikit {

class UIThumbView : public objc::Interface<"_UIThumbView", UIView> {};

// Creates a thumb with this diameter, in points. It receives no touches and has a soft shadow outside of its bounds.
objc::Ref<UIThumbView> makeThumb(CGFloat diameter);

void defineThumb();

}  // namespace uikit
