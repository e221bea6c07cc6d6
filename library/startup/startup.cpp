// The library's entry point. It runs once, when the library is loaded into a process.
#include "library/settings/settings.hpp"
#include "library/startup/class_registration.hpp"
#include "library/startup/hook_table.hpp"
#include "library/utilities/diagnostic_log.hpp"
#include "objc/autorelease_pool.hpp"

namespace {

[[gnu::constructor]] void start() {
  const objc::AutoreleasePool pool;
  settings::registerAll();
  if (!settings::enabled) return;
  diagnosticLog("-- Brim enabled --");
  registerClasses();
  installHookTable();
}

}  // namespace
