#include "device/emulation/crossings.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <map>
#include <mutex>
#include <utility>

#include "device/emulation/report.hpp"

namespace emulation {

namespace {

using objc::CallingConvention;
using objc::NarrowInteger;

// The sizes of the tables in crossings.S.
constexpr std::size_t maxEntries = 1024;
constexpr std::size_t maxExits = 512;
constexpr std::size_t stubSize = 8;

// The registers in the order in which crossings.S saves them.
struct Registers {
  std::uint64_t general[9];
};

struct Entry {
  IMP implementation;
  CallingConvention convention;
  std::string name;
};

struct Exit {
  NarrowInteger result;
  std::string name;
};

struct Stubs {
  std::mutex mutex;
  // An element is appended while the mutex is locked, and never changes afterwards.
  std::array<Entry, maxEntries> entries;
  std::size_t entryCount = 0;
  std::array<Exit, maxExits> exits;
  std::size_t exitCount = 0;
  std::map<std::pair<IMP, std::string>, IMP> knownEntries;
  std::map<std::pair<IMP, NarrowInteger>, IMP> knownExits;
  std::map<std::pair<Class, SEL>, NarrowInteger> results;
};

// Never destroyed, because exit handlers release objects.
Stubs& stubs() {
  static auto* const instance = new Stubs;
  return *instance;
}

IMP stubAt(const char* table, std::size_t number) {
  return reinterpret_cast<IMP>(reinterpret_cast<std::uintptr_t>(table) + number * stubSize);
}

std::string inHexadecimal(std::uint64_t value) {
  std::array<char, 20> text{};
  std::snprintf(text.data(), text.size(), "0x%llx", static_cast<unsigned long long>(value));
  return text.data();
}

CallingConvention conventionOf(const char* encoding, const std::string& name) {
  const CallingConvention convention = objc::callingConventionOf(encoding);
  if (!convention.isKnown) fail(name + " has the unknown type " + encoding);
  return convention;
}

// Returns the type of the narrow result of the method that the message calls, or None. Methods are looked up once for
// each class and selector.
NarrowInteger resultOf(Class receiverClass, SEL selector) {
  Stubs& all = stubs();
  const std::lock_guard lock(all.mutex);
  const auto [found, isNew] = all.results.try_emplace({receiverClass, selector}, NarrowInteger::None);
  if (isNew) {
    const Method method = class_getInstanceMethod(receiverClass, selector);
    const char* const encoding = method == nullptr ? nullptr : method_getTypeEncoding(method);
    if (encoding != nullptr) found->second = objc::callingConventionOf(encoding).result;
  }
  return found->second;
}

}  // namespace

extern "C" {

void emulation_send_message();
extern const char emulation_entry_stubs[];
extern const char emulation_exit_stubs[];

[[gnu::visibility("hidden")]] std::array<IMP, maxExits> emulation_exit_targets;

[[gnu::visibility("hidden")]] IMP emulation_method_for_message(std::uint64_t, const Registers* registers) {
  const id receiver = reinterpret_cast<id>(registers->general[0]);
  const SEL selector = reinterpret_cast<SEL>(registers->general[1]);
  const IMP implementation = objc_msg_lookup(receiver, selector);
  const Class receiverClass = object_getClass(receiver);
  if (resultOf(receiverClass, selector) == NarrowInteger::None) return implementation;
  const Method method = class_getInstanceMethod(receiverClass, selector);
  return outOfLibrary(implementation, method_getTypeEncoding(method), sel_getName(selector));
}

[[gnu::visibility("hidden")]] IMP emulation_extend_arguments(std::uint64_t number, Registers* registers) {
  const Entry& entry = stubs().entries[number];
  if (isReporting()) report("called " + entry.name);
  for (std::size_t index = 0; index < CallingConvention::registerCount; ++index) {
    const NarrowInteger type = entry.convention.arguments[index];
    if (type == NarrowInteger::None) continue;
    const std::uint64_t passed = registers->general[index];
    registers->general[index] = objc::extended(passed, type);
    if (isReporting() && static_cast<std::uint32_t>(passed) != registers->general[index])
      report("not extended: x" + std::to_string(index) + " of " + entry.name + ", " + inHexadecimal(passed));
  }
  return entry.implementation;
}

[[gnu::visibility("hidden")]] std::uint64_t emulation_extend_result(std::uint64_t returned, std::uint64_t number) {
  const Exit& exit = stubs().exits[number];
  const std::uint64_t result = objc::extended(returned, exit.result);
  if (isReporting() && static_cast<std::uint32_t>(returned) != result)
    report("not extended: result of " + exit.name + ", " + inHexadecimal(returned));
  return result;
}

}  // extern "C"

void* messageFunction() { return reinterpret_cast<void*>(&emulation_send_message); }

IMP intoLibrary(IMP implementation, const char* encoding, const std::string& name) {
  const CallingConvention convention = conventionOf(encoding, name);
  if (convention.packsStack) fail(name + " has a narrow argument on the stack");
  if (!convention.hasNarrowArguments() && !isReporting()) return implementation;
  Stubs& all = stubs();
  const std::lock_guard lock(all.mutex);
  IMP& stub = all.knownEntries[{implementation, name + encoding}];
  if (stub == nullptr) {
    if (all.entryCount == maxEntries) fail("too many methods");
    all.entries[all.entryCount] = {implementation, convention, name};
    stub = stubAt(emulation_entry_stubs, all.entryCount++);
  }
  return stub;
}

IMP outOfLibrary(IMP implementation, const char* encoding, const std::string& name) {
  const NarrowInteger result = objc::callingConventionOf(encoding).result;
  if (implementation == nullptr || result == NarrowInteger::None) return implementation;
  Stubs& all = stubs();
  const std::lock_guard lock(all.mutex);
  IMP& stub = all.knownExits[{implementation, result}];
  if (stub == nullptr) {
    if (conventionOf(encoding, name).usesStack) fail(name + " has a narrow result and arguments on the stack");
    if (all.exitCount == maxExits) fail("too many methods with a narrow result");
    emulation_exit_targets[all.exitCount] = implementation;
    all.exits[all.exitCount] = {result, name};
    stub = stubAt(emulation_exit_stubs, all.exitCount++);
  }
  return stub;
}

}  // namespace emulation
