// The settings pane's request for a test banner, sent the way the pane sends it.
#pragma once

namespace runner {

// Posts it to the processes of the phone and waits until it has come back to this one, and with it to the home screen.
// False when it has not within a few seconds. It is not in the event log: no process of the phone posted it.
bool postTestBannerRequest();

}  // namespace runner
