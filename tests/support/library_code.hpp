// Recognizes the code of the library. Tests use this to identify the caller of a function. Main thread.
#pragma once

namespace test {

// Returns whether the address is in the library, or in the loader that runs the phone's library.
bool isLibraryCode(const void* address);

}  // namespace test
