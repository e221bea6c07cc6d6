// Comparisons of long strings. Foundation compares strings by composed characters. It uses a buffer on the stack whose
// size is a multiple of the longest sequence of combining marks, so a long sequence overflows the stack.
#pragma once

namespace foundation {

// Makes all comparisons and searches literal if one of the strings has more than 4096 UTF-16 units. Main thread, once.
void installStringComparison();

}  // namespace foundation
