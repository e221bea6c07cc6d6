#include "objc/class_definition.hpp"

#include <cstdint>
#include <string>

#include "objc/property_entry.hpp"
#include "platform/ns_string.hpp"
#include "tests/objc/counted.hpp"
#include "tests/objc/runtime_environment.hpp"

class TestAnimal : public objc::Interface<"BrimTestAnimal", NSObject> {};
class TestDog : public objc::Interface<"BrimTestDog", TestAnimal> {};
class TestRecord : public objc::Interface<"BrimTestRecord", NSObject> {};
class TestAligned : public objc::Interface<"BrimTestAligned", NSObject> {};
class TestTwin : public objc::Interface<"BrimTestTwin", NSObject> {};
class TestMissing : public objc::Interface<"NoSuchClassAnywhere", NSObject> {};
class TestOrphan : public objc::Interface<"BrimTestOrphan", TestMissing> {};
class TestClash : public objc::Interface<"BrimTestClash", TestRecord> {};

namespace {

struct AnimalState {
  std::string name = "nameless";
  objc::Ref<Counted> companion;
};
struct DogState {
  int barks = 3;
  objc::Ref<Counted> toy = objc::make<Counted>();
};
struct RecordState {
  bool flag = true;
  NSInteger number = 12;
  objc::Ref<NSString> text;
  objc::Weak<NSObject> owner;
};
struct AlignedState {
  alignas(16) double numbers[2] = {1, 2};
};

}  // namespace

template <>
struct objc::StateOf<TestAnimal> {
  using Type = AnimalState;
};
template <>
struct objc::StateOf<TestDog> {
  using Type = DogState;
};
template <>
struct objc::StateOf<TestRecord> {
  using Type = RecordState;
};
template <>
struct objc::StateOf<TestOrphan> {
  using Type = AlignedState;
};
template <>
struct objc::StateOf<TestClash> {
  using Type = RecordState;
};
template <>
struct objc::StateOf<TestAligned> {
  using Type = AlignedState;
};

namespace {

int legs(Class) { return 4; }
int sound(TestAnimal*) { return 1; }
int dogSound(TestDog* self) {
  return 10 * objc::sendSuper<"BrimTestDog", int, "sound">(self) + objc::state(self).barks;
}

constexpr objc::FieldEntry recordFields[] = {
    objc::field<bool>("_flag", offsetof(RecordState, flag)),
    objc::field<NSInteger>("_number", offsetof(RecordState, number)),
    objc::field<objc::Ref<NSString>>("_text", offsetof(RecordState, text)),
    objc::field<objc::Weak<NSObject>>("_owner", offsetof(RecordState, owner)),
};

void defineTestClasses() {
  if (TestAnimal::classObject() != nullptr) return;
  static constexpr objc::MethodEntry animalMethods[] = {objc::method<"sound", &sound>(),
                                                        objc::classMethod<"legs", &legs>()};
  static constexpr objc::MethodEntry dogMethods[] = {objc::method<"sound", &dogSound>()};
  objc::defineClassWithState<TestAnimal>(animalMethods);
  objc::defineClassWithState<TestDog>(dogMethods);
  objc::defineClassWithState<TestRecord>({}, recordFields);
  objc::defineClassWithState<TestAligned>({});
  static constexpr objc::PropertyEntry properties[] = {
      objc::stored<"number", TestRecord, &RecordState::number>(),
      objc::stored<"text", TestRecord, &RecordState::text>(),
      objc::readOnly<"flag", TestRecord, &RecordState::flag>(),
  };
  objc::addProperties(TestRecord::classObject(), properties);
}

class ClassDefinition : public RuntimeTest {
 protected:
  ClassDefinition() { defineTestClasses(); }
};

TEST_F(ClassDefinition, ConstructsAndDestroysTheState) {
  {
    const auto dog = objc::make<TestDog>();
    EXPECT_EQ(objc::state(static_cast<TestAnimal*>(dog.get())).name, "nameless");
    EXPECT_EQ(objc::state(dog.get()).barks, 3);
    objc::state(static_cast<TestAnimal*>(dog.get())).name = std::string(1000, 'n');
    objc::state(static_cast<TestAnimal*>(dog.get())).companion = objc::make<Counted>();
    EXPECT_EQ(livingObjects(), 2);
  }
  EXPECT_EQ(livingObjects(), 0);
}

TEST_F(ClassDefinition, StatesOfClassAndSuperclassDoNotOverlap) {
  const auto dog = objc::make<TestDog>();
  auto& animalState = objc::state(static_cast<TestAnimal*>(dog.get()));
  auto& dogState = objc::state(dog.get());
  EXPECT_GE(reinterpret_cast<char*>(&dogState), reinterpret_cast<char*>(&animalState + 1));
}

TEST_F(ClassDefinition, SubclassOverridesAndCallsSuper) {
  EXPECT_EQ((objc::send<int, "sound">(objc::make<TestAnimal>().get())), 1);
  EXPECT_EQ((objc::send<int, "sound">(objc::make<TestDog>().get())), 13);
}

TEST_F(ClassDefinition, ClassMethodsAreInherited) { EXPECT_EQ((objc::send<int, "legs">(TestDog::classObject())), 4); }

TEST_F(ClassDefinition, FieldsAreInstanceVariables) {
  const auto record = objc::make<TestRecord>();
  const auto variable = class_getInstanceVariable(TestRecord::classObject(), "_number");
  ASSERT_NE(variable, nullptr);
  EXPECT_STREQ(ivar_getTypeEncoding(variable), "q");
  const auto* const address = reinterpret_cast<const char*>(record.get()) + ivar_getOffset(variable);
  EXPECT_EQ(*reinterpret_cast<const NSInteger*>(address), 12);
  EXPECT_STREQ(ivar_getTypeEncoding(class_getInstanceVariable(TestRecord::classObject(), "_text")), "@");
  EXPECT_STREQ(ivar_getTypeEncoding(class_getInstanceVariable(TestRecord::classObject(), "_flag")), "B");
}

TEST_F(ClassDefinition, PropertiesReadAndWriteTheState) {
  const auto record = objc::make<TestRecord>();
  objc::send<void, "setNumber:">(record.get(), NSInteger{77});
  EXPECT_EQ((objc::send<NSInteger, "number">(record.get())), 77);
  EXPECT_TRUE((objc::send<bool, "flag">(record.get())));
  EXPECT_FALSE(respondsTo<"setFlag:">(reinterpret_cast<const NSObject*>(record.get())));
}

TEST_F(ClassDefinition, ObjectPropertiesRetainTheirValue) {
  const auto record = objc::make<TestRecord>();
  {
    const auto text = objc::adopt(objc::send<NSString*, "mutableCopy">("retained"_ns));
    objc::send<void, "setText:">(record.get(), text.get());
  }
  EXPECT_STREQ((objc::send<NSString*, "text">(record.get())->UTF8String()), "retained");
}

TEST_F(ClassDefinition, StateIsAligned) {
  const auto first = objc::make<TestAligned>();
  const auto second = objc::make<TestAligned>();
  for (const auto* object : {first.get(), second.get()})
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(&objc::state(object)) % 16, 0U);
  EXPECT_EQ(objc::state(second.get()).numbers[1], 2);
}

TEST_F(ClassDefinition, FailsIfTheNameIsInUse) {
  ASSERT_TRUE(objc::tryToDefineClass<TestTwin>({}));
  EXPECT_FALSE(objc::tryToDefineClass<TestTwin>({}));
  EXPECT_FALSE(objc::tryToDefineClassWithState<TestRecord>({}, recordFields));
}

TEST_F(ClassDefinition, FailsIfTheSuperclassIsMissing) {
  EXPECT_FALSE(objc::tryToDefineClass<TestOrphan>({}));
  EXPECT_FALSE(objc::tryToDefineClassWithState<TestOrphan>({}));
  EXPECT_EQ(TestOrphan::classObject(), nullptr);
}

TEST_F(ClassDefinition, FailsIfTheRuntimeRejectsAnInstanceVariable) {
  // The superclass has instance variables of the same names.
  EXPECT_FALSE(objc::tryToDefineClassWithState<TestClash>({}, recordFields));
  EXPECT_EQ(TestClash::classObject(), nullptr);
}

TEST_F(ClassDefinition, CategoriesAddMethodsWithoutReplacingExistingOnes) {
  static constexpr objc::MethodEntry added[] = {objc::method<"sound", &sound>(), objc::classMethod<"legs", &legs>()};
  objc::addCategory(Counted::classObject(), added);
  EXPECT_EQ((objc::send<int, "legs">(Counted::classObject())), 4);
  objc::addCategory(TestDog::classObject(), added);
  EXPECT_EQ((objc::send<int, "sound">(objc::make<TestDog>().get())), 13);
  objc::addCategory(nullptr, added);
}

}  // namespace
