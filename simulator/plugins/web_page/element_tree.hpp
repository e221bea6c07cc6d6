// Describes the accessible elements of the screen to a page, which builds an ARIA tree from them. Main thread.
#pragma once

#include "simulator/plugins/phone_display/composer_commands.hpp"
#include "simulator/plugins/phone_display/focus_ring.hpp"
#include "simulator/plugins/phone_display/window_layout.hpp"

namespace web_page {

// Returns the frame as [x,y,width,height] in multiples of the size of the picture.
phone_display::Json frameJson(const phone_display::WindowLayout& layout, const CGRect& frame);

// Returns one object for each element, in reading order: `id`, `parent` (the index of the containing element, or null),
// `role`, `label`, `value`, `frame`, `enabled`, `focused` and `actions` (their names). `focus` is the identifier of the
// element with the keyboard focus; if it is 0, the first responder is focused.
phone_display::Json elementsJson(const phone_display::WindowLayout& layout, const phone_display::Elements& elements,
                                 std::uint64_t focus);

}  // namespace web_page
