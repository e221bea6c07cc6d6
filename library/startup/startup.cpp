// Runs once, when the library is mapped into a process.
#include "library/startup/classes.hpp"
#include "library/startup/diagnostic_log.hpp"
#include "library/startup/hook_table.hpp"
#include "library/startup/settings.hpp"
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
