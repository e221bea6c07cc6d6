// The cost of presenting notifications: with Brim against without, late against early, in time and in memory.
#pragma once

namespace bench {

void measurePresenting();

}  // namespace bench
