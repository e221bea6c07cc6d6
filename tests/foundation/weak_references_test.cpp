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

// What an object sees of weak references to itself while it goes away.
struct ObservedState {
  objc::Weak<TestObserved>* outside = nullptr;
  bool* seenOutside = nullptr;
  bool* seenOwn = nullptr;
};

}  // namespace

template <>
struct objc::StateOf<TestObserved> {
  using Type = ObservedState;
};

namespace {

void cleanUp(TestObserved* self) {
  ObservedState& state = objc::state(self);
  if (state.outside != nullptr) *state.seenOutside = state.outside->lock() != nullptr;
  if (state.seenOwn != nullptr) *state.seenOwn = objc::Weak<TestObserved>(self).lock() != nullptr;
}

class TestObservedChild : public objc::Interface<"BrimTestObservedChild", TestObserved> {};

void deallocChild(TestObservedChild* self) {
  cleanUp(self);
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

TEST_F(WeakReferences, LoadAsNilWhileTheirObjectGoesAway) {
  bool seen = true;
  auto object = objc::make<TestObservedChild>();
  objc::Weak<TestObserved> weak(object);
  objc::state<TestObserved>(object) = {&weak, &seen, nullptr};
  object = nullptr;
  EXPECT_FALSE(seen);
}

TEST_F(WeakReferences, ToAnObjectThatIsGoingAwayAreNil) {
  bool seen = true;
  auto object = objc::make<TestObservedChild>();
  objc::state<TestObserved>(object).seenOwn = &seen;
  object = nullptr;
  EXPECT_FALSE(seen);
}

TEST_F(WeakReferences, AreAllClearedTogether) {
  std::vector<objc::Weak<Counted>> references;
  {
    const auto object = objc::make<Counted>();
    for (int count = 0; count < 100; ++count) references.emplace_back(object);
  }
  for (const auto& weak : references) EXPECT_EQ(weak.lock().get(), nullptr);
}

TEST_F(WeakReferences, MayDieBeforeTheirObject) {
  const auto object = objc::make<Counted>();
  auto first = std::make_unique<objc::Weak<Counted>>(object);
  const objc::Weak<Counted> second(object);
  first.reset();
  EXPECT_EQ(second.lock().get(), object.get());
}

TEST_F(WeakReferences, StoringAnswersWhatIsStored) {
  id location = nullptr;
  const auto object = objc::make<Counted>();
  const id raw = objc::detail::identifier(object.get());
  EXPECT_EQ(objc_storeWeak(&location, raw), raw);
  EXPECT_EQ(objc_storeWeak(&location, nullptr), nullptr);
  EXPECT_EQ(objc_loadWeakRetained(&location), nullptr);
  objc_destroyWeak(&location);
}

TEST_F(WeakReferences, MovingOnToAnotherObjectForgetsTheFirst) {
  auto first = objc::make<Counted>();
  const auto second = objc::make<Counted>();
  objc::Weak<Counted> weak(first);
  weak = second.get();
  first = nullptr;
  EXPECT_EQ(weak.lock().get(), second.get());
}

// One thread lets go of the last reference while another tries to get one.
TEST_F(WeakReferences, NeverGiveADyingObjectToAnotherThread) {
  std::atomic<bool> done = false;
  std::atomic<int> wrong = 0;
  objc::Weak<Counted> weak;
  std::thread reader([&] {
    while (!done)
      if (const auto locked = weak.lock(); locked != nullptr && objc::send<int, "number">(locked.get()) != 7) ++wrong;
  });
  for (int round = 0; round < 20000; ++round) {
    const auto object = objc::make<Counted>();
    weak = object.get();
  }
  done = true;
  reader.join();
  EXPECT_EQ(wrong, 0);
  EXPECT_EQ(livingObjects(), 0);
}

}  // namespace
