#include <thread>
#include <vector>

#include "objc/runtime.hpp"
#include "platform/ns_array.hpp"
#include "platform/ns_data.hpp"
#include "platform/ns_number.hpp"
#include "platform/ns_string.hpp"
#include "tests/objc/counted.hpp"
#include "tests/objc/runtime_environment.hpp"

namespace {

using AssociatedObjects = RuntimeTest;

constexpr std::uintptr_t assign = 0;
constexpr std::uintptr_t retainNonatomic = 1;
constexpr std::uintptr_t copyNonatomic = 3;
constexpr std::uintptr_t retainAtomic = 0x301;
constexpr std::uintptr_t copyAtomic = 0x303;

const char firstKey = 0;
const char secondKey = 0;

id asId(const void* object) { return objc::detail::toId(object); }
void associate(const NSObject* object, const void* key, const NSObject* value, std::uintptr_t policy) {
  objc_setAssociatedObject(asId(object), key, asId(value), policy);
}
const void* associated(const NSObject* object, const void* key) { return objc_getAssociatedObject(asId(object), key); }

TEST_F(AssociatedObjects, AreNilUntilSet) {
  const auto object = objc::make<Counted>();
  EXPECT_EQ(associated(object, &firstKey), nullptr);
  associate(object, &firstKey, object, assign);
  EXPECT_EQ(associated(object, &secondKey), nullptr);
}

TEST_F(AssociatedObjects, RetainedValuesAreReleasedWithTheirObject) {
  auto object = objc::make<Counted>();
  associate(object, &firstKey, objc::make<Counted>(), retainNonatomic);
  EXPECT_EQ(livingObjects(), 2);
  object = nullptr;
  EXPECT_EQ(livingObjects(), 0);
}

TEST_F(AssociatedObjects, AssignedValuesAreNotRetained) {
  const auto object = objc::make<Counted>();
  auto value = objc::make<Counted>();
  associate(object, &firstKey, value, assign);
  EXPECT_EQ(retainCount(value), 1U);
  EXPECT_EQ(associated(object, &firstKey), value.get());
}

TEST_F(AssociatedObjects, CopyPoliciesStoreACopy) {
  for (const std::uintptr_t policy : {copyNonatomic, copyAtomic}) {
    const auto object = objc::make<Counted>();
    const auto value = objc::make<Counted>();
    associate(object, &firstKey, value, policy);
    EXPECT_NE(associated(object, &firstKey), nullptr);
    EXPECT_NE(associated(object, &firstKey), value.get());
    EXPECT_EQ(retainCount(value), 1U);
  }
  EXPECT_EQ(livingObjects(), 1) << "the autorelease pool still retains the copy that was read under the atomic policy";
}

TEST_F(AssociatedObjects, AtomicallyReadValuesOutliveTheirReplacement) {
  const auto object = objc::make<Counted>();
  associate(object, &firstKey, objc::make<Counted>(), retainAtomic);
  const void* const value = associated(object, &firstKey);
  associate(object, &firstKey, nullptr, retainAtomic);
  EXPECT_EQ(livingObjects(), 2);
  EXPECT_EQ((objc::send<int, "number">(value)), 7);
}

TEST_F(AssociatedObjects, NilRemovesTheValue) {
  const auto object = objc::make<Counted>();
  associate(object, &firstKey, objc::make<Counted>(), retainNonatomic);
  associate(object, &firstKey, nullptr, retainNonatomic);
  EXPECT_EQ(associated(object, &firstKey), nullptr);
  EXPECT_EQ(livingObjects(), 1);
}

TEST_F(AssociatedObjects, ReplacingReleasesTheOldValue) {
  const auto object = objc::make<Counted>();
  associate(object, &firstKey, objc::make<Counted>(), retainNonatomic);
  associate(object, &firstKey, objc::make<Counted>(), retainNonatomic);
  EXPECT_EQ(livingObjects(), 2);
}

TEST_F(AssociatedObjects, SettingTheSameValueAgainKeepsIt) {
  const auto object = objc::make<Counted>();
  associate(object, &firstKey, objc::make<Counted>(), retainNonatomic);
  const void* const value = associated(object, &firstKey);
  associate(object, &firstKey, static_cast<const NSObject*>(value), retainNonatomic);
  EXPECT_EQ(livingObjects(), 2);
}

TEST_F(AssociatedObjects, RemovingAllReleasesEveryValue) {
  const auto object = objc::make<Counted>();
  associate(object, &firstKey, objc::make<Counted>(), retainNonatomic);
  associate(object, &secondKey, objc::make<Counted>(), retainNonatomic);
  objc_removeAssociatedObjects(asId(object));
  EXPECT_EQ(livingObjects(), 1);
  EXPECT_EQ(associated(object, &firstKey), nullptr);
}

TEST_F(AssociatedObjects, NilObjectIsIgnored) {
  associate(nullptr, &firstKey, "value"_ns, retainNonatomic);
  EXPECT_EQ(associated(nullptr, &firstKey), nullptr);
  objc_removeAssociatedObjects(nullptr);
}

objc::Ref<NSObject> newNumber() {
  const objc::AutoreleasePool pool;
  return objc::retain<NSObject>(NSNumber::numberWithDouble(3.25));
}

// Objects of Foundation's value classes: each class deallocates its objects in a different way.
std::vector<objc::Ref<NSObject>> foundationObjects() {
  std::vector<objc::Ref<NSObject>> objects;
  objects.push_back(
      objc::adopt(objc::send<NSObject*, "initWithUTF8String:">(objc::allocate<NSString>(), "plain text, long enough")));
  objects.push_back(
      objc::adopt(objc::send<NSObject*, "initWithUTF8String:">(objc::allocate<NSString>(), "text in ünïcode")));
  objects.push_back(objc::adopt(objc::send<NSObject*, "mutableCopy">("changing"_ns)));
  objects.push_back(newNumber());
  objects.push_back(objc::make<NSMutableArray>());
  const id element = asId("element"_ns);
  objects.push_back(
      objc::adopt(objc::send<NSObject*, "initWithObjects:count:">(objc::allocate<NSArray>(), &element, NSUInteger{1})));
  objects.push_back(objc::adopt(objc::send<NSObject*, "initWithBytes:length:">(
      objc::allocate<NSData>(), static_cast<const void*>("bytes"), NSUInteger{5})));
  for (const char* name : {"NSMutableDictionary", "NSMutableData", "NSMutableSet", "NSDate", "NSLock"})
    objects.push_back(objc::adopt(objc::send<NSObject*, "new">(objc_getClass(name))));
  return objects;
}

TEST_F(AssociatedObjects, ValuesOfFoundationObjectsAreReleasedWithThem) {
  for (objc::Ref<NSObject>& object : foundationObjects()) {
    const std::string name = class_getName(object_getClass(asId(object.get())));
    ASSERT_EQ(retainCount(object), 1U) << name;
    associate(object, &firstKey, objc::make<Counted>(), retainNonatomic);
    const objc::Weak<NSObject> weak(object);
    object = nullptr;
    EXPECT_EQ(livingObjects(), 0) << name;
    EXPECT_EQ(weak.lock().get(), nullptr) << name;
  }
}

TEST_F(AssociatedObjects, ManyObjectsHaveSeparateValues) {
  std::vector<objc::Ref<Counted>> objects;
  for (int index = 0; index < 20000; ++index) {
    objects.push_back(objc::make<Counted>());
    associate(objects.back(), &firstKey, objc::make<Counted>(), retainNonatomic);
  }
  EXPECT_EQ(livingObjects(), 40000);
  objects.resize(10000);
  EXPECT_EQ(livingObjects(), 20000);
  EXPECT_NE(associated(objects.front(), &firstKey), associated(objects.back(), &firstKey));
}

TEST_F(AssociatedObjects, ThreadsCanAssociateConcurrently) {
  const auto shared = objc::make<Counted>();
  const auto work = [&shared](const char* key) {
    for (int round = 0; round < 5000; ++round) {
      const auto own = objc::make<Counted>();
      associate(own, key, objc::make<Counted>(), retainNonatomic);
      associate(shared, key, own, retainNonatomic);
    }
  };
  std::thread first(work, &firstKey);
  std::thread second(work, &secondKey);
  first.join();
  second.join();
  EXPECT_EQ(livingObjects(), 5);
  objc_removeAssociatedObjects(asId(shared));
  EXPECT_EQ(livingObjects(), 1);
}

}  // namespace
