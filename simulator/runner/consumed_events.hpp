// Tracks which events the script's `await` commands have consumed. Each event ends at most one wait. Main thread.
#pragma once

#include <string>

namespace runner {

// Consumes the oldest event of this kind that was not consumed yet. Returns false if there is none.
bool consumeEvent(const std::string& kind);
// Consumes all events of this kind that have occurred so far, because they belong to an earlier notification.
void consumeAllEvents(const std::string& kind);

}  // namespace runner
