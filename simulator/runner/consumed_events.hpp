// Tracks which events the script's `await` commands have consumed. Each event ends at most one `await`. Main thread.
#pragma once

#include <string>

namespace runner {

// Consumes the oldest event of this kind that no `await` has consumed yet. Returns false if there is no such event.
bool consumeEvent(const std::string& kind);
// Consumes all events of this kind that have occurred so far. Use this if they belong to earlier notifications.
void consumeAllEvents(const std::string& kind);

}  // namespace runner
