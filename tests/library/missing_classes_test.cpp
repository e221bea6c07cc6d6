// Tests of the library in a process that has the view toolkit but neither the home screen nor the Messages app.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <span>

#include "library/startup/inspection.hpp"
#include "objc/autorelease_pool.hpp"
#include "simulator/base/installation.hpp"
#include "simulator/foundation/classes.hpp"
#include "simulator/process/process_start.hpp"
#include "simulator/uikit/classes.hpp"
#include "tests/hook_rows.hpp"
#include "tests/support/temporary_folder.hpp"

namespace {

TEST(MissingClasses, LeaveAllHooksWithoutEffect) {
  const test::TemporaryFolder root;
  process::useRoot(root.path());
  foundation::registerClasses();
  const objc::AutoreleasePool pool;
  uikit::registerClasses();
  void* const library = dlopen(base::installation().library.c_str(), RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(library, nullptr) << dlerror();
  const auto list =
      reinterpret_cast<const BrimInstalledMethod* (*)(std::size_t*)>(dlsym(library, "brim_installed_methods"));
  ASSERT_NE(list, nullptr);
  std::size_t count = 0;
  const BrimInstalledMethod* const methods = list(&count);
  ASSERT_EQ(count, std::size(test::hookRows));
  for (const BrimInstalledMethod& method : std::span(methods, count)) EXPECT_FALSE(method.effective) << method.selector;
}

}  // namespace
