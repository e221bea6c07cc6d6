// The library's entry point. It runs once, when the library is loaded into a process.
#include "library/applications/supported_applications.hpp"
#include "library/photos/folder_finder.hpp"
#include "library/settings/settings.hpp"
#include "library/startup/hook_table.hpp"
#include "library/utilities/diagnostic_log.hpp"
#include "library/utilities/ns_string_md5.hpp"
#include "library/utilities/parent_view_controller.hpp"
#include "library/utilities/type_check_helper.hpp"
#include "library/view/brim_colors.hpp"
#include "library/view/brim_container.hpp"
#include "objc/autorelease_pool.hpp"

namespace {

// Registers each superclass before its subclasses.
void registerClasses() {
  registerStringUtilities();
  registerViewUtilities();
  registerTypeCheckHelper();
  registerBrimColors();
  registerBannerClasses();
  registerFolderFinder();
  registerPhotoProviders();
}

[[gnu::constructor]] void start() {
  const objc::AutoreleasePool pool;
  settings::registerAll();
  if (!settings::enabled) return;
  diagnosticLog("-- Brim enabled --");
  registerClasses();
  installHookTable();
}

}  // namespace
