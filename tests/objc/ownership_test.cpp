#include "objc/ownership.hpp"

#include <thread>
#include <utility>

#include "tests/objc/counted.hpp"
#include "tests/objc/runtime_environment.hpp"

namespace {

using Ownership = RuntimeTest;

TEST_F(Ownership, MakeReturnsTheOnlyReference) {
  const auto object = objc::make<Counted>();
  EXPECT_EQ(retainCount(object), 1U);
  EXPECT_EQ(livingObjects(), 1);
}

TEST_F(Ownership, CopiesRetainAndMovesDoNot) {
  auto first = objc::make<Counted>();
  auto second = first;
  EXPECT_EQ(retainCount(first), 2U);
  const auto third = std::move(first);
  EXPECT_EQ(retainCount(third), 2U);
  // NOLINTNEXTLINE(bugprone-use-after-move,clang-analyzer-cplusplus.Move): a moved-from reference is null.
  EXPECT_EQ(first.get(), nullptr);
  second = nullptr;
  EXPECT_EQ(retainCount(third), 1U);
}

TEST_F(Ownership, SelfAssignmentKeepsTheReference) {
  auto object = objc::make<Counted>();
  const auto& same = object;
  object = same;
  EXPECT_EQ(retainCount(object), 1U);
}

TEST_F(Ownership, AssignmentReleasesTheOldObject) {
  auto object = objc::make<Counted>();
  object = objc::make<Counted>();
  EXPECT_EQ(livingObjects(), 1);
}

TEST_F(Ownership, LeakTransfersTheReferenceToTheCaller) {
  auto object = objc::make<Counted>();
  Counted* const raw = object.leak();
  EXPECT_EQ(object.get(), nullptr);
  EXPECT_EQ(livingObjects(), 1);
  objc::releaseObject(raw);
  EXPECT_EQ(livingObjects(), 0);
}

TEST_F(Ownership, AutoreleasedObjectsLiveUntilThePoolIsDrained) {
  {
    const objc::AutoreleasePool pool;
    objc::autorelease(objc::make<Counted>());
    EXPECT_EQ(livingObjects(), 1);
  }
  EXPECT_EQ(livingObjects(), 0);
}

TEST_F(Ownership, ReferenceConvertsToASuperclassReference) {
  const auto object = objc::make<Counted>();
  const objc::Ref<NSObject> superclassReference = object;
  EXPECT_EQ(superclassReference.get(), object.get());
  EXPECT_EQ(retainCount(object), 2U);
}

TEST_F(Ownership, WeakReferenceIsNullAfterDeallocation) {
  auto object = objc::make<Counted>();
  const objc::Weak<Counted> weak(object);
  EXPECT_EQ(weak.lock().get(), object.get());
  EXPECT_EQ(retainCount(object), 1U);
  object = nullptr;
  EXPECT_EQ(weak.lock().get(), nullptr);
  EXPECT_EQ(livingObjects(), 0);
}

TEST_F(Ownership, LockedWeakReferenceRetainsTheObject) {
  auto object = objc::make<Counted>();
  const objc::Weak<Counted> weak(object);
  const auto locked = weak.lock();
  object = nullptr;
  EXPECT_EQ(livingObjects(), 1);
  EXPECT_EQ(weak.lock().get(), locked.get());
}

TEST_F(Ownership, CopyOfAWeakReferenceIsIndependent) {
  auto object = objc::make<Counted>();
  objc::Weak<Counted> second;
  {
    const objc::Weak<Counted> first(object);
    second = first;
  }
  EXPECT_EQ(second.lock().get(), object.get());
  second = static_cast<Counted*>(nullptr);
  EXPECT_EQ(second.lock().get(), nullptr);
}

TEST_F(Ownership, RetainCountIsExactAcrossThreads) {
  const auto object = objc::make<Counted>();
  const objc::Weak<Counted> weak(object);
  const auto churn = [&weak] {
    for (int round = 0; round < 20000; ++round) {
      const auto locked = weak.lock();
      const auto copy = locked;
      static_cast<void>(copy);
    }
  };
  std::thread first(churn);
  std::thread second(churn);
  first.join();
  second.join();
  EXPECT_EQ(retainCount(object), 1U);
}

}  // namespace
