#include "objc/block.hpp"

#include <string>

#include "platform/ns_object.hpp"
#include "platform/ns_string.hpp"
#include "tests/objc/counted.hpp"
#include "tests/objc/runtime_environment.hpp"

namespace {

using BlockTest = RuntimeTest;

// A capture of a block. It counts its copies and its living instances.
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

TEST_F(BlockTest, PassesStructsAndDoubles) {
  const auto ratio =
      objc::block([](NSRange range, double factor) { return factor * static_cast<double>(range.length); });
  EXPECT_DOUBLE_EQ((*ratio.get())(NSRange{3, 4}, 0.5), 2);
}

TEST_F(BlockTest, DestroysItsCaptures) {
  int copies = 0;
  int living = 0;
  {
    const Tracked tracked(&copies, &living);
    const auto block = objc::block([tracked] { static_cast<void>(tracked); });
    EXPECT_GT(living, 1);
  }
  EXPECT_EQ(living, 0);
}

TEST_F(BlockTest, CopiesShareTheirCaptures) {
  int copies = 0;
  int living = 0;
  const Tracked tracked(&copies, &living);
  const auto block = objc::block([tracked] { static_cast<void>(tracked); });
  const int copiesAfterCreation = copies;
  const int livingAfterCreation = living;
  {
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the copy is under test.
    const objc::BlockRef<void()> shared = block;
    const objc::BlockRef<void()> borrowed(block.get());
    EXPECT_EQ(shared.get(), block.get());
    EXPECT_EQ(borrowed.get(), block.get());
  }
  EXPECT_EQ(copies, copiesAfterCreation);
  EXPECT_EQ(living, livingAfterCreation);
}

TEST_F(BlockTest, RetainsCapturedObjects) {
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

TEST_F(BlockTest, CopyOutlivesTheOriginalBlock) {
  const std::string text(100, 'x');
  auto length = objc::block([text] { return text.size(); });
  const auto second = length;
  length = {};
  EXPECT_EQ((*second.get())(), 100U);
}

TEST_F(BlockTest, CopyOfANullBlockIsNull) {
  const objc::BlockRef<void()> null(nullptr);
  const objc::BlockRef<void()> copy = null;  // NOLINT(performance-unnecessary-copy-initialization)
  EXPECT_EQ(copy.get(), nullptr);
}

TEST_F(BlockTest, DescriptorContainsTheSignature) {
  struct Layout {
    void* isa;
    int flags;
    int reserved;
    void* invoke;
    const objc::detail::BlockDescriptor* descriptor;
  };
  const auto block = objc::block([](NSString*, bool) { return 1.5; });
  EXPECT_STREQ(reinterpret_cast<const Layout*>(block.get())->descriptor->signature, "d@?@B");
}

}  // namespace
