// The edges of the cards behind the front card of a pile of notifications. Lengths are in points. Main thread.
#pragma once

#include <cstddef>

#include "platform/ui_view.hpp"

namespace springboard {

// Adds the edges of the hidden cards below a front card of this size, at most two of them. Returns their height.
CGFloat addPileEdges(UIView* cell, std::size_t hiddenCards, CGSize front);

}  // namespace springboard
