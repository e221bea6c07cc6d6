#include "objc/hook.hpp"
#include "objc/hook_installation.hpp"

#include "platform/ns_string.hpp"
#include "simulator/foundation/hook_function.hpp"
#include "tests/objc/counted.hpp"
#include "tests/objc/runtime_environment.hpp"

class TestHooked : public objc::Interface<"BrimTestHooked", NSObject> {};

namespace {

double scaled(TestHooked*, double value) { return value * 2; }

double scaledByHook(objc::Original<double(TestHooked*, double)> original, TestHooked* self, double value) {
  return original(self, value) + 0.5;
}
double neverReached(objc::Original<double(TestHooked*)>, TestHooked*) { return 1; }
bool isAdded(TestHooked*) { return true; }
int sharedNumber(Class) { return 5; }

void defineHooked() {
  static constexpr objc::MethodEntry methods[] = {objc::method<"scaled:", &scaled>()};
  if (TestHooked::classObject() == nullptr) objc::defineClass<TestHooked>(methods);
}

objc::InstalledMethod install(const objc::MethodRow& row) { return objc::install(row, &MSHookMessageEx); }

void installRow(const objc::Row& row) {
  for (std::size_t index = 0; index < row.count; ++index) install(row.methods[index]);
}

class HookRows : public RuntimeTest {
 protected:
  HookRows() { defineHooked(); }
};

TEST_F(HookRows, HookCallsTheReplacedImplementation) {
  const objc::Row row = objc::hook<"scaled:", &scaledByHook>("BrimTestHooked");
  const objc::InstalledMethod installed = install(row.methods[0]);
  EXPECT_TRUE(installed.effective);
  EXPECT_STREQ(installed.encoding, "d@:d");
  EXPECT_DOUBLE_EQ((objc::send<double, "scaled:">(objc::make<TestHooked>().get(), 3.0)), 6.5);
}

TEST_F(HookRows, HookOfAMissingMethodHasNoEffect) {
  const objc::Row row = objc::hook<"missing", &neverReached>("BrimTestHooked");
  const auto refuseToHook = [](Class, SEL, IMP, IMP*) { ADD_FAILURE() << "some loaders would add the method"; };
  EXPECT_FALSE(objc::install(row.methods[0], refuseToHook).effective);
  EXPECT_FALSE(respondsTo<"missing">(objc::make<TestHooked>()));
}

TEST_F(HookRows, RowsOfAMissingClassHaveNoEffect) {
  EXPECT_FALSE(install(objc::hook<"scaled:", &scaledByHook>("NoSuchClassAnywhere").methods[0]).effective);
  EXPECT_FALSE(install(objc::add<"isAdded", &isAdded>("NoSuchClassAnywhere").methods[0]).effective);
}

TEST_F(HookRows, MethodIsAddedOnlyOnce) {
  const objc::Row row = objc::add<"isAdded", &isAdded>("BrimTestHooked");
  EXPECT_TRUE(install(row.methods[0]).effective);
  EXPECT_TRUE((objc::send<bool, "isAdded">(objc::make<TestHooked>().get())));
  EXPECT_FALSE(install(row.methods[0]).effective) << "the class already has the method";
}

TEST_F(HookRows, AddedClassMethodsCanBeSentToTheClass) {
  installRow(objc::add<"sharedNumber", &sharedNumber, objc::Level::Class>("BrimTestHooked"));
  EXPECT_EQ((objc::send<int, "sharedNumber">(TestHooked::classObject())), 5);
}

TEST_F(HookRows, BooleanPropertiesAreFalseUntilSet) {
  installRow(objc::property<"isMarked", bool>("BrimTestHooked"));
  const auto object = objc::make<TestHooked>();
  EXPECT_FALSE((objc::send<bool, "isMarked">(object.get())));
  objc::send<void, "setIsMarked:">(object.get(), true);
  EXPECT_TRUE((objc::send<bool, "isMarked">(object.get())));
  objc::send<void, "setIsMarked:">(object.get(), false);
  EXPECT_FALSE((objc::send<bool, "isMarked">(object.get())));
}

TEST_F(HookRows, ObjectPropertiesRetainTheirValueUntilTheOwnerIsDeallocated) {
  installRow(objc::property<"companion", NSObject*>("BrimTestHooked"));
  {
    const auto object = objc::make<TestHooked>();
    EXPECT_EQ((objc::send<NSObject*, "companion">(object.get())), nullptr);
    objc::send<void, "setCompanion:">(object.get(), static_cast<NSObject*>(objc::make<Counted>().get()));
    EXPECT_EQ(livingObjects(), 1);
  }
  EXPECT_EQ(livingObjects(), 0);
}

}  // namespace
