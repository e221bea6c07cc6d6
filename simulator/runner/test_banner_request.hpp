// Requests a test banner, as the settings pane does.
#pragma once

namespace runner {

// Posts the request as a distributed notification and waits until this process, which is the home screen, has received
// it. Returns false after 5 seconds. The post is not recorded in the event log, because the settings pane is not part
// of the simulated phone. Main thread.
bool postTestBannerRequest();

}  // namespace runner
