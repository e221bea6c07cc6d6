// Diagnostic lines for developers of the library.
#pragma once

// Writes nothing in release builds.
inline void diagnosticLog([[maybe_unused]] const char* line) {
#if defined(BRIM_DIAGNOSTICS)
  __builtin_printf("%s\n", line);
#endif
}
