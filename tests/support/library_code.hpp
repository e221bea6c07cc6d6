// Recognizes the code of the library, from which tests identify the caller of a function. Main thread.
#pragma once

namespace test {

// Whether the address is in the library, or in the loader that runs the phone's library.
bool isLibraryCode(const void* address);

}  // namespace test
