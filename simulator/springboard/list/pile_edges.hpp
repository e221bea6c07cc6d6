// A pile of notifications: the edges of the cards that are behind the front card. Lengths are in points. Main thread.
#pragma once

#include <cstddef>

#include "platform/ui_view.hpp"

namespace springboard {

// Adds the edges of the hidden cards (at most two) below a front card of this size. Returns the height of the edges.
CGFloat addPileEdges(UIView* cell, std::size_t hiddenCards, CGSize front);

}  // namespace springboard
