#include "library/startup/injected_environment.hpp"

#include "platform/dynamic_linking.hpp"
#include "platform/hb_preferences.hpp"

namespace {

constexpr const char* preferencesFrameworks[] = {
    "/Library/Frameworks/Cephei.framework/Cephei",
    "/var/jb/Library/Frameworks/Cephei.framework/Cephei",
};

// Every loader installs its library, or a substitute for it, at one of these paths.
constexpr const char* loaders[] = {
    "/Library/Frameworks/CydiaSubstrate.framework/CydiaSubstrate",
    "/usr/lib/libsubstrate.dylib",
    "/var/jb/Library/Frameworks/CydiaSubstrate.framework/CydiaSubstrate",
    "/var/jb/usr/lib/libsubstrate.dylib",
};

constexpr const char* hookFunctionName = "MSHookMessageEx";

objc::HookFunction* hookFunctionIn(void* library) {
  return reinterpret_cast<objc::HookFunction*>(dlsym(library, hookFunctionName));
}

}  // namespace

void loadPreferences() {
  for (const char* framework : preferencesFrameworks) {
    if (HBPreferences::classObject() != nullptr) return;
    dlopen(framework, RTLD_LAZY);
  }
}

objc::HookFunction* findHookFunction() {
  if (auto* const function = reinterpret_cast<objc::HookFunction*>(symbolInProcess(hookFunctionName))) return function;
  for (const char* loader : loaders) {
    void* const library = dlopen(loader, RTLD_LAZY);
    if (library == nullptr) continue;
    if (objc::HookFunction* const function = hookFunctionIn(library)) return function;
  }
  return nullptr;
}
