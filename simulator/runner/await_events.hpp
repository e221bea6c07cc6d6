// Which events a script has been told of: it waits for one, and each ends one wait at most.
#pragma once

#include <string>

namespace runner {

// Whether an event of that kind came that nobody has been told of. It counts as told then, and those behind it wait.
bool answerNextEvent(const std::string& kind);
// Those that came so far belong to what is over.
void answerAllEvents(const std::string& kind);

}  // namespace runner
