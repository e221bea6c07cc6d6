// Handing a picture to its banner.
#pragma once

#include "library/view/brim_container.hpp"

// Shows the picture in a later turn of the main thread, unless the banner has gone by then. nil clears what the banner
// shows. Main thread: views are let go there alone.
void showLater(const objc::Weak<BrimContainer>& view, const objc::Ref<UIImage>& picture);
