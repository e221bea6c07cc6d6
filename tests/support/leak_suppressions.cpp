// For the leak sanitizer: the Objective-C runtime, Foundation and fontconfig keep what they allocate until the process
// ends, in places where the sanitizer does not look.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libobjc.so\nleak:libgnustep-base.so\nleak:libfontconfig.so";
}
