#include "tests/objc/runtime_environment.hpp"

#include <cstdlib>
#include <stdexcept>

#include "simulator/foundation/classes.hpp"
#include "simulator/foundation/root.hpp"
#include "tests/objc/counted.hpp"

namespace {

int number(Counted* self) { return objc::state(self).number; }
void setNumber(Counted* self, int number) { objc::state(self).number = number; }
NSObject* copyWithZone(Counted*, void*) { return objc::make<Counted>().leak(); }

constexpr objc::MethodEntry methods[] = {
    objc::method<"number", &number>(),
    objc::method<"setNumber:", &setNumber>(),
    objc::method<"copyWithZone:", &copyWithZone>(),
};

// The environment variable that passes the root of a test to its child processes.
constexpr const char* rootVariable = "BRIM_TEST_ROOT";

std::filesystem::path makeFolder() {
  char name[] = "/tmp/brim-test-XXXXXX";
  if (mkdtemp(name) == nullptr) throw std::runtime_error("cannot create a temporary folder in /tmp");
  return name;
}

class RuntimeEnvironment : public testing::Environment {
 public:
  void SetUp() override {
    if (const char* const inheritedRoot = std::getenv(rootVariable)) {
      folder = inheritedRoot;
    } else {
      folder = makeFolder();
      setenv(rootVariable, folder.c_str(), 1);
      // Exit handlers run in reverse order, so this handler runs after the handlers that useRoot() registers.
      std::atexit([] { std::filesystem::remove_all(testRoot()); });
    }
    if (const auto error = foundation::useRoot(folder, foundation::DefaultsDatabase::OfRoot))
      throw std::runtime_error(*error);
    foundation::registerClasses();
    defineCounted();
  }

  std::filesystem::path folder;
};

RuntimeEnvironment& environment() {
  static auto* const shared = new RuntimeEnvironment;
  return *shared;
}

[[maybe_unused]] const testing::Environment* const registered = testing::AddGlobalTestEnvironment(&environment());

}  // namespace

const std::filesystem::path& testRoot() { return environment().folder; }

void defineCounted() { objc::defineClassWithState<Counted>(methods); }
