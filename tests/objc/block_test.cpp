#include "objc/block.hpp"

#include <string>

#include "platform/ns_object.hpp"
#include "platform/ns_string.hpp"
#include "tests/objc/counted.hpp"
#include "tests/objc/runtime_environment.hpp"

namespace {

using BlockTest = RuntimeTest;

// Counts how often a captured value was copied and destroyed.
struct Tracked {
  explicit Tracked(int* copyCount, int* livingCount) : copies(copyCount), living(livingCount) { ++*living; }
  Tracked(const Tracked& other) : copies(other.copies), living(other.living) {
    ++*copies;
    ++*living;
  }
  Tracked& operator=(const Tracked&) = delete;
  ~Tracked() { --*living; }

  int* copies;
  int* living;
};

int callWith(objc::Block<int(int)>* borrowed, int argument) { return (*borrowed)(argument); }

TEST_F(BlockTest, CallsItsLambda) {
  const auto addition = objc::block([base = 40](int added) { return base + added; });
  EXPECT_EQ(callWith(addition, 2), 42);
}

TEST_F(BlockTest, PassesStructuresAndDoubles) {
  const auto ratio =
      objc::block([](NSRange range, double factor) { return factor * static_cast<double>(range.length); });
  EXPECT_DOUBLE_EQ((*ratio.get())(NSRange{3, 4}, 0.5), 2);
}

TEST_F(BlockTest, DestroysWhatItCaptured) {
  int copies = 0;
  int living = 0;
  {
    const Tracked tracked(&copies, &living);
    const auto made = objc::block([tracked] { static_cast<void>(tracked); });
    EXPECT_GT(living, 1);
  }
  EXPECT_EQ(living, 0);
}

TEST_F(BlockTest, CopiesShareWhatWasCaptured) {
  int copies = 0;
  int living = 0;
  const Tracked tracked(&copies, &living);
  const auto made = objc::block([tracked] { static_cast<void>(tracked); });
  const int copiesOfMaking = copies;
  const int livingWithBlock = living;
  {
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): it is the copy that is looked at.
    const objc::BlockRef<void()> shared = made;
    const objc::BlockRef<void()> borrowed(made.get());
    EXPECT_EQ(shared.get(), made.get());
    EXPECT_EQ(borrowed.get(), made.get());
  }
  EXPECT_EQ(copies, copiesOfMaking);
  EXPECT_EQ(living, livingWithBlock);
}

TEST_F(BlockTest, KeepsCapturedObjectsAlive) {
  objc::BlockRef<int()> number;
  {
    const auto object = objc::make<Counted>();
    number = objc::block([object] { return objc::send<int, "number">(object.get()); });
  }
  EXPECT_EQ(livingObjects(), 1);
  EXPECT_EQ((*number.get())(), 7);
  number = {};
  EXPECT_EQ(livingObjects(), 0);
}

TEST_F(BlockTest, CapturesObjectsThatOwnMemory) {
  const std::string text(100, 'x');
  auto length = objc::block([text] { return text.size(); });
  const auto second = length;
  length = {};
  EXPECT_EQ((*second.get())(), 100U);
}

TEST_F(BlockTest, NullStaysNull) {
  const objc::BlockRef<void()> nothing(nullptr);
  const objc::BlockRef<void()> copy = nothing;  // NOLINT(performance-unnecessary-copy-initialization)
  EXPECT_EQ(copy.get(), nullptr);
}

TEST_F(BlockTest, CarriesItsSignature) {
  struct Layout {
    void* isa;
    int flags;
    int reserved;
    void* invoke;
    const objc::detail::BlockDescriptor* descriptor;
  };
  const auto made = objc::block([](NSString*, bool) { return 1.5; });
  EXPECT_STREQ(reinterpret_cast<const Layout*>(made.get())->descriptor->signature, "d@?@B");
}

}  // namespace
