// Log lines for developers of the library.
#pragma once

// Prints the line if the library was compiled with BRIM_DIAGNOSTICS. Release builds print nothing.
inline void diagnosticLog([[maybe_unused]] const char* line) {
#if defined(BRIM_DIAGNOSTICS)
  __builtin_printf("%s\n", line);
#endif
}
