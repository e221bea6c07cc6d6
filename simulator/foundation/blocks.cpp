// The blocks runtime, according to the published block ABI. GNUstep's own runtime has two defects. It copies the heap
// block back over the stack block, which breaks captured C++ objects. Its reference counts are not atomic, which breaks
// blocks that threads share.
#include <atomic>
#include <cstdlib>
#include <cstring>

#include "objc/block.hpp"

namespace {

constexpr int referenceCountMask = 0xfffe;
constexpr int oneReference = 2;
constexpr int needsFree = 1 << 24;
constexpr int hasCopyAndDispose = 1 << 25;
constexpr int isGlobal = 1 << 28;

struct BlockHeader {
  void* isa;
  int flags;
  int reserved;
  void (*invoke)(void*);
  const objc::detail::BlockDescriptor* descriptor;
};

std::atomic_ref<int> flagsOf(BlockHeader* block) { return std::atomic_ref<int>(block->flags); }

}  // namespace

extern "C" {

void* _NSConcreteStackBlock[32] = {};
void* _NSConcreteMallocBlock[32] = {};
void* _NSConcreteGlobalBlock[32] = {};

void* _Block_copy(const void* borrowed) {
  auto* source = static_cast<BlockHeader*>(const_cast<void*>(borrowed));
  if (source == nullptr || (source->flags & isGlobal) != 0) return source;
  if ((flagsOf(source).load(std::memory_order_relaxed) & needsFree) != 0) {
    flagsOf(source).fetch_add(oneReference, std::memory_order_relaxed);
    return source;
  }
  auto* copy = static_cast<BlockHeader*>(std::malloc(source->descriptor->size));
  std::memcpy(static_cast<void*>(copy), source, source->descriptor->size);
  copy->isa = static_cast<void*>(_NSConcreteMallocBlock);
  copy->flags = (source->flags & ~referenceCountMask) | needsFree | oneReference;
  if ((copy->flags & hasCopyAndDispose) != 0) copy->descriptor->copy(copy, source);
  return copy;
}

void _Block_release(const void* borrowed) {
  auto* block = static_cast<BlockHeader*>(const_cast<void*>(borrowed));
  if (block == nullptr || (block->flags & needsFree) == 0) return;
  const int before = flagsOf(block).fetch_sub(oneReference, std::memory_order_acq_rel);
  if ((before & referenceCountMask) != oneReference) return;
  if ((block->flags & hasCopyAndDispose) != 0) block->descriptor->dispose(block);
  std::free(block);
}

}  // extern "C"
