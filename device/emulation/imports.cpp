#include "device/emulation/imports.hpp"

#include <dlfcn.h>
#include <fcntl.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "device/emulation/crossings.hpp"
#include "device/emulation/library_address.hpp"
#include "device/emulation/report.hpp"
#include "simulator/foundation/hook_function.hpp"

namespace emulation {

namespace {

// A number that differs between the phone and Linux.
struct Flag {
  int onPhone;
  int onLinux;
};

template <std::size_t count>
int translated(int flags, const Flag (&table)[count], const char* function) {
  int known = 0;
  int result = 0;
  for (const Flag& flag : table) {
    known |= flag.onPhone;
    if ((flags & flag.onPhone) != 0) result |= flag.onLinux;
  }
  if ((flags & ~known) != 0) fail(std::string(function) + " has unknown flags");
  return result;
}

std::string methodName(Class target, SEL selector) {
  return std::string(class_isMetaClass(target) ? "+" : "-") + "[" + class_getName(target) + " " +
         sel_getName(selector) + "]";
}

const char* encodingOf(Class target, SEL selector) {
  const Method method = target == nullptr ? nullptr : class_getInstanceMethod(target, selector);
  return method == nullptr ? nullptr : method_getTypeEncoding(method);
}

// GCC's runtime defines object_getClass as an inline function only.
Class getClass(id object) { return object_getClass(object); }

// The return type is 32 bits wide, because the library expects a result of type BOOL to be extended to 32 bits.
std::uint32_t addMethod(Class changed, SEL selector, IMP implementation, const char* encoding) {
  return class_addMethod(changed, selector, intoLibrary(implementation, encoding, methodName(changed, selector)),
                         encoding)
             ? 1
             : 0;
}

std::uint32_t addInstanceVariable(Class changed, const char* name, std::size_t size, std::uint32_t alignment,
                                  const char* encoding) {
  return class_addIvar(changed, name, size, static_cast<std::uint8_t>(alignment), encoding) ? 1 : 0;
}

IMP getMethodImplementation(Class target, SEL selector) {
  const IMP found = class_getMethodImplementation(target, selector);
  const char* const encoding = encodingOf(target, selector);
  return encoding == nullptr ? found : outOfLibrary(found, encoding, methodName(target, selector));
}

void hookMethod(Class target, SEL selector, IMP replacement, IMP* replaced) {
  const char* const encoding = encodingOf(target, selector);
  if (encoding == nullptr) return MSHookMessageEx(target, selector, replacement, replaced);
  const std::string name = methodName(target, selector);
  MSHookMessageEx(target, selector, intoLibrary(replacement, encoding, name), replaced);
  if (replaced != nullptr) *replaced = outOfLibrary(*replaced, encoding, name);
}

// The start of a block, as the published ABI defines it. If a flag is set, the descriptor contains the functions that
// copy and dispose of the block. The signature follows them.
struct BlockHeader {
  void* isa;
  std::uint32_t flags;
  std::uint32_t reserved;
  IMP invoke;
  const std::uintptr_t* descriptor;
};

const char* signatureOf(const BlockHeader& block) {
  constexpr std::uint32_t hasCopyAndDispose = 1U << 25;
  constexpr std::uint32_t hasSignature = 1U << 30;
  if ((block.flags & hasSignature) == 0) return nullptr;
  return reinterpret_cast<const char*>(block.descriptor[(block.flags & hasCopyAndDispose) != 0 ? 4 : 2]);
}

// The library copies each block that it creates before it passes the block to the platform. Therefore, a copy is the
// place to replace the block's function.
void* copyBlock(const void* block) {
  auto* const copy = static_cast<BlockHeader*>(_Block_copy(block));
  if (copy == nullptr || !isInPhoneFile(reinterpret_cast<const void*>(copy->invoke))) return copy;
  const char* const signature = signatureOf(*copy);
  if (signature == nullptr) fail("a block has no signature");
  copy->invoke = intoLibrary(copy->invoke, signature, std::string("a block of type ") + signature);
  return copy;
}

int openFile(const char* path, int flags) {
  static constexpr Flag table[] = {{0x1, O_WRONLY}, {0x2, O_RDWR},       {0x4, O_NONBLOCK},
                                   {0x8, O_APPEND}, {0x100, O_NOFOLLOW}, {0x1000000, O_CLOEXEC}};
  return open(path, translated(flags, table, "open"));
}

// The simulator takes the place of the phone's own libraries and of the code-injection loader's.
bool isLibraryOfThePhone(std::string_view path) {
  return path.starts_with("/System/Library/") || path.starts_with("/usr/lib/") ||
         path.starts_with("/Library/Frameworks/");
}

void* openLibrary(const char* path, int mode) {
  static constexpr Flag table[] = {
      {0x1, RTLD_LAZY}, {0x2, RTLD_NOW}, {0x4, RTLD_LOCAL}, {0x8, RTLD_GLOBAL}, {0x10, RTLD_NOLOAD}};
  int linuxMode = translated(mode, table, "dlopen");
  if ((linuxMode & (RTLD_LAZY | RTLD_NOW)) == 0) linuxMode |= RTLD_LAZY;
  return dlopen(path != nullptr && isLibraryOfThePhone(path) ? nullptr : path, linuxMode);
}

void* replacementOf(std::string_view symbol);

void* findSymbol(void* library, const char* name) {
  void* const found = dlsym(library, name);
  if (found == nullptr) return nullptr;
  void* const replacement = replacementOf(std::string("_").append(name));
  return replacement != nullptr ? replacement : found;
}

// Never called, because all symbols are bound when the library is loaded.
void bindLazily() { fail("a symbol is bound lazily"); }

template <class Function>
void* addressOf(Function* function) {
  return reinterpret_cast<void*>(function);
}

struct Replacement {
  std::string_view symbol;
  void* address;
};

// Returns the function to use for an import instead of the symbol of the same name, or null if there is none.
void* replacementOf(std::string_view symbol) {
  static const Replacement table[] = {
      {"_objc_msgSend", messageFunction()},
      {"_object_getClass", addressOf(&getClass)},
      {"_class_addMethod", addressOf(&addMethod)},
      {"_class_addIvar", addressOf(&addInstanceVariable)},
      {"_class_getMethodImplementation", addressOf(&getMethodImplementation)},
      {"_MSHookMessageEx", addressOf(&hookMethod)},
      {"__Block_copy", addressOf(&copyBlock)},
      {"_open", addressOf(&openFile)},
      {"_dlopen", addressOf(&openLibrary)},
      {"_dlsym", addressOf(&findSymbol)},
      {"dyld_stub_binder", addressOf(&bindLazily)},
  };
  const auto* const found =
      std::find_if(std::begin(table), std::end(table), [&](const Replacement& row) { return row.symbol == symbol; });
  return found == std::end(table) ? nullptr : found->address;
}

}  // namespace

void* importedAddress(const std::string& symbol) {
  void* const replacement = replacementOf(symbol);
  if (replacement != nullptr || !symbol.starts_with('_')) return replacement;
  return dlsym(RTLD_DEFAULT, symbol.c_str() + 1);
}

}  // namespace emulation
