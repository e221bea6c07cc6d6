#include <atomic>
#include <memory>
#include <thread>
#include <vector>

#include "objc/class_definition.hpp"
#include "objc/ownership.hpp"
#include "tests/objc/counted.hpp"
#include "tests/objc/runtime_environment.hpp"

class TestObserved : public objc::Interface<"BrimTestObserved", NSObject> {};

namespace {

// During its deallocation, the object loads an existing and a new weak reference to itself, and stores whether each
// reference was nonnull.
struct ObservedState {
  objc::Weak<TestObserved>* existing = nullptr;
  bool* existingIsLoaded = nullptr;
  bool* newIsLoaded = nullptr;
};

}  // namespace

template <>
struct objc::StateOf<TestObserved> {
  using Type = ObservedState;
};

namespace {

void loadWeakReferences(TestObserved* self) {
  ObservedState& state = objc::state(self);
  if (state.existing != nullptr) *state.existingIsLoaded = state.existing->lock() != nullptr;
  if (state.newIsLoaded != nullptr) *state.newIsLoaded = objc::Weak<TestObserved>(self).lock() != nullptr;
}

class TestObservedChild : public objc::Interface<"BrimTestObservedChild", TestObserved> {};

void deallocChild(TestObservedChild* self) {
  loadWeakReferences(self);
  objc::sendSuper<"BrimTestObservedChild", void, "dealloc">(self);
}

class WeakReferences : public RuntimeTest {
 protected:
  WeakReferences() {
    if (TestObserved::classObject() != nullptr) return;
    static constexpr objc::MethodEntry methods[] = {objc::method<"dealloc", &deallocChild>()};
    objc::defineClassWithState<TestObserved>({});
    objc::defineClass<TestObservedChild>(methods);
  }
};

TEST_F(WeakReferences, AreNilDuringDeallocation) {
  bool loaded = true;
  auto object = objc::make<TestObservedChild>();
  objc::Weak<TestObserved> weak(object);
  objc::state<TestObserved>(object) = {&weak, &loaded, nullptr};
  object = nullptr;
  EXPECT_FALSE(loaded);
}

TEST_F(WeakReferences, CreatedDuringDeallocationAreNil) {
  bool loaded = true;
  auto object = objc::make<TestObservedChild>();
  objc::state<TestObserved>(object).newIsLoaded = &loaded;
  object = nullptr;
  EXPECT_FALSE(loaded);
}

TEST_F(WeakReferences, AllReferencesToAnObjectAreCleared) {
  std::vector<objc::Weak<Counted>> references;
  {
    const auto object = objc::make<Counted>();
    for (int count = 0; count < 100; ++count) references.emplace_back(object);
  }
  for (const auto& weak : references) EXPECT_EQ(weak.lock().get(), nullptr);
}

TEST_F(WeakReferences, CanBeDestroyedBeforeTheirObject) {
  const auto object = objc::make<Counted>();
  auto first = std::make_unique<objc::Weak<Counted>>(object);
  const objc::Weak<Counted> second(object);
  first.reset();
  EXPECT_EQ(second.lock().get(), object.get());
}

TEST_F(WeakReferences, StoreReturnsTheStoredObject) {
  id location = nullptr;
  const auto object = objc::make<Counted>();
  const id raw = objc::detail::toId(object.get());
  EXPECT_EQ(objc_storeWeak(&location, raw), raw);
  EXPECT_EQ(objc_storeWeak(&location, nullptr), nullptr);
  EXPECT_EQ(objc_loadWeakRetained(&location), nullptr);
  objc_destroyWeak(&location);
}

TEST_F(WeakReferences, ReassignedReferenceIsNotClearedWithTheOldObject) {
  auto first = objc::make<Counted>();
  const auto second = objc::make<Counted>();
  objc::Weak<Counted> weak(first);
  weak = second.get();
  first = nullptr;
  EXPECT_EQ(weak.lock().get(), second.get());
}

// One thread releases the last strong reference while another loads the weak reference.
TEST_F(WeakReferences, NeverReturnADeallocatingObjectToAnotherThread) {
  std::atomic<bool> done = false;
  std::atomic<int> failures = 0;
  objc::Weak<Counted> weak;
  std::thread reader([&] {
    while (!done)
      if (const auto locked = weak.lock(); locked != nullptr && objc::send<int, "number">(locked.get()) != 7)
        ++failures;
  });
  for (int round = 0; round < 20000; ++round) {
    const auto object = objc::make<Counted>();
    weak = object.get();
  }
  done = true;
  reader.join();
  EXPECT_EQ(failures, 0);
  EXPECT_EQ(livingObjects(), 0);
}

}  // namespace
