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

class RuntimeEnvironment : public testing::Environment {
 public:
  void SetUp() override {
    char name[] = "/tmp/brim-test-XXXXXX";
    if (mkdtemp(name) == nullptr) throw std::runtime_error("no temporary folder");
    folder = name;
    if (const auto reason = foundation::useRoot(folder, foundation::DefaultsDatabase::OfRoot))
      throw std::runtime_error(*reason);
    foundation::registerClasses();
    defineCounted();
  }
  void TearDown() override { std::filesystem::remove_all(folder); }

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
