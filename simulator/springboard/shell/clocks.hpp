// The clocks on the screen.
#pragma once

namespace springboard {

// They show the minute that it is. Writing a time takes longer than most of what a script asks for, so that nothing
// happens until the minute is another.
void refreshClocks();

}  // namespace springboard
