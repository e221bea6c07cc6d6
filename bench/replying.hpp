// The time that a reply takes to the Messages app's store, against that of a bare notification between two processes.
#pragma once

namespace bench {

void measureReplying();

}  // namespace bench
