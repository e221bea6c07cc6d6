// For the leak sanitizer: fontconfig points to the parts of its patterns by offsets, where the sanitizer looks for
// addresses. Patterns that are in use until the process ends look lost to it.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so"; }
