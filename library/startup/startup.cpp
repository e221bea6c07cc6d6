// The library's entry point. It runs once, when the library is loaded into a process.
#include "library/applications/supported_applications.hpp"
#include "library/photos/folder_finder.hpp"
#include "library/settings/settings.hpp"
#include "library/startup/hook_table.hpp"
#include "library/startup/injected_environment.hpp"
#include "library/startup/private_interfaces.hpp"
#include "library/utilities/diagnostic_log.hpp"
#include "library/utilities/ns_string_md5.hpp"
#include "library/utilities/parent_view_controller.hpp"
#include "library/utilities/type_check_helper.hpp"
#include "library/view/brim_colors.hpp"
#include "library/view/brim_container.hpp"
#include "objc/autorelease_pool.hpp"
#include "platform/foundation_log.hpp"

namespace {

// Registers each superclass before its subclasses. Returns false if a class cannot be registered, for example because
// another copy of the library has registered it.
bool registerClasses() {
  registerStringUtilities();
  registerViewUtilities();
  return registerTypeCheckHelper() && registerBrimColors() && registerBannerClasses() && registerFolderFinder() &&
         registerPhotoProviders();
}

// Returns whether an interface is missing. If one is, logs its name.
bool logMissingInterface(Requirement requirement) {
  NSString* const missing = missingInterface(requirement);
  if (missing == nullptr) return false;
  NSLog("Brim is inactive: this system does not have "_ns->stringByAppendingString(missing));
  return true;
}

[[gnu::constructor]] void start() {
  const objc::AutoreleasePool pool;
  loadPreferences();
  if (logMissingInterface(Requirement::Start)) return;
  settings::registerAll();
  if (!settings::enabled) return;
  diagnosticLog("-- Brim enabled --");
  objc::HookFunction* const hookFunction = findHookFunction();
  if (hookFunction == nullptr) {
    NSLog("Brim is inactive: no code-injection loader has the function MSHookMessageEx."_ns);
    return;
  }
  if (logMissingInterface(Requirement::Banner)) return;
  if (!registerClasses()) {
    NSLog("Brim is inactive: the runtime did not register a class of the library."_ns);
    return;
  }
  installHookTable(hookFunction);
}

}  // namespace
