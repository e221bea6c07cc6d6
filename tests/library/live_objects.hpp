// How many objects the process holds, by Foundation's own count.
#pragma once

#include <cstddef>

namespace test {

// Objects that were made before this are not counted.
void countLiveObjects();
std::ptrdiff_t liveObjects();

}  // namespace test
