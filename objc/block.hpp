// Creates blocks from lambdas, and calls blocks from C++. On the phone, the compiler creates the blocks, because only
// the compiler knows how the pointers in a block are signed for each processor. On other systems, this header defines
// the memory layout of a block.
#pragma once

#include <new>
#include <type_traits>
#include <utility>

#include "objc/calling_convention.hpp"
#include "objc/encoding.hpp"
#include "objc/runtime.hpp"

namespace objc {

template <class Signature>
class Block;

// A block as the platform passes it. It is used only through borrowed pointers, can be called, and is never created by
// value.
template <class Result, class... Arguments>
class Block<Result(Arguments...)> {
 public:
  Block() = delete;
  Block(const Block&) = delete;
  Block& operator=(const Block&) = delete;

#if defined(__APPLE__)
  Result operator()(Arguments... arguments) {
    static_assert(isPassedAlike(BlockEncoding<Result, Arguments...>::value.data()));
    return reinterpret_cast<Result (^)(Arguments...)>(this)(arguments...);
  }
#else
  Result operator()(Arguments... arguments) {
    static_assert(isPassedAlike(BlockEncoding<Result, Arguments...>::value.data()));
    return invoke_(this, arguments...);
  }

 private:
  [[maybe_unused]] void* isa_;
  [[maybe_unused]] int flags_;
  [[maybe_unused]] int reserved_;
  Result (*invoke_)(void*, Arguments...);
#endif
};

// A strong reference to a block, or null. Copies of the reference refer to the same block.
template <class Signature>
class BlockRef {
 public:
  constexpr BlockRef() = default;
  // Copies the block to the heap if it is on the stack. The reference is null if `borrowed` is null.
  explicit BlockRef(Block<Signature>* borrowed) : block_(copy(borrowed)) {}
  BlockRef(const BlockRef& other) : block_(copy(other.block_)) {}
  BlockRef(BlockRef&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
  BlockRef& operator=(BlockRef other) noexcept {
    std::swap(block_, other.block_);
    return *this;
  }
  ~BlockRef() {
    if (block_ != nullptr) _Block_release(block_);
  }

  // NOLINTNEXTLINE(google-explicit-constructor): converts to a borrowed pointer.
  operator Block<Signature>*() const { return block_; }
  Block<Signature>* get() const { return block_; }

 private:
  static Block<Signature>* copy(Block<Signature>* block) {
    return block == nullptr ? nullptr : static_cast<Block<Signature>*>(_Block_copy(block));
  }

  Block<Signature>* block_ = nullptr;
};

namespace detail {

template <class Lambda>
struct LambdaSignature : LambdaSignature<decltype(&Lambda::operator())> {};
template <class Lambda, class Result, class... Arguments>
struct LambdaSignature<Result (Lambda::*)(Arguments...) const> {
  static_assert(isPassedAlike(BlockEncoding<Result, Arguments...>::value.data()));
  using Type = Result(Arguments...);
};

template <class Lambda, class Signature>
struct BlockOf;

#if defined(__APPLE__)

template <class Lambda, class Result, class... Arguments>
struct BlockOf<Lambda, Result(Arguments...)> {
  static BlockRef<Result(Arguments...)> make(const Lambda& lambda) {
    const Lambda captured(lambda);
    auto onStack = ^Result(Arguments... arguments) {
      return captured(arguments...);
    };
    return BlockRef<Result(Arguments...)>(reinterpret_cast<Block<Result(Arguments...)>*>(onStack));
  }
};

#else

struct BlockDescriptor {
  unsigned long reserved;
  unsigned long size;
  void (*copy)(void* destination, const void* source);
  void (*dispose)(const void* block);
  const char* signature;
};

template <class Lambda, class Signature>
struct BlockLayout;

template <class Lambda, class Result, class... Arguments>
struct BlockLayout<Lambda, Result(Arguments...)> {
  void* isa;
  int flags;
  int reserved;
  Result (*invoke)(void*, Arguments...);
  const BlockDescriptor* descriptor;
  alignas(Lambda) unsigned char captured[sizeof(Lambda)];

  static const Lambda& lambdaOf(const void* block) {
    return *std::launder(reinterpret_cast<const Lambda*>(static_cast<const BlockLayout*>(block)->captured));
  }
  static Result run(void* block, Arguments... arguments) { return lambdaOf(block)(arguments...); }
  static void copyCaptured(void* destination, const void* source) {
    new (static_cast<BlockLayout*>(destination)->captured) Lambda(lambdaOf(source));
  }
  static void disposeCaptured(const void* block) { lambdaOf(block).~Lambda(); }

  static constexpr auto signature = BlockEncoding<Result, Arguments...>::value;
  static constexpr int hasCopyAndDispose = 1 << 25;
  static constexpr int hasSignature = 1 << 30;
};

template <class Lambda, class Result, class... Arguments>
struct BlockOf<Lambda, Result(Arguments...)> {
  using Layout = BlockLayout<Lambda, Result(Arguments...)>;

  static BlockRef<Result(Arguments...)> make(const Lambda& lambda) {
    static constexpr BlockDescriptor descriptor = {0, sizeof(Layout), &Layout::copyCaptured, &Layout::disposeCaptured,
                                                   Layout::signature.data()};
    Layout onStack;
    onStack.isa = static_cast<void*>(_NSConcreteStackBlock);
    onStack.flags = Layout::hasCopyAndDispose | Layout::hasSignature;
    onStack.reserved = 0;
    onStack.invoke = &Layout::run;
    onStack.descriptor = &descriptor;
    new (onStack.captured) Lambda(lambda);
    BlockRef<Result(Arguments...)> copied(reinterpret_cast<Block<Result(Arguments...)>*>(&onStack));
    Layout::disposeCaptured(&onStack);
    return copied;
  }
};

#endif

}  // namespace detail

// Returns a block that calls a copy of the lambda. The copy is destroyed with the block.
template <class Lambda, class Signature = typename detail::LambdaSignature<Lambda>::Type>
BlockRef<Signature> block(const Lambda& lambda) {
  return detail::BlockOf<Lambda, Signature>::make(lambda);
}

}  // namespace objc
