#include "tests/device/emulator/c_library.hpp"

#include <glib.h>

#include <array>
#include <stdexcept>

namespace device {

namespace {

// The memory layout of a block: class, flags, code, and a descriptor with its size and its copy and dispose functions.
constexpr Address flagsOffset = 8;
constexpr Address invokeOffset = 16;
constexpr Address descriptorOffset = 24;
constexpr Address sizeOffset = 8;
constexpr Address copyOffset = 16;
constexpr Address disposeOffset = 24;
constexpr std::uint32_t countMask = 0xfffe;
constexpr std::uint32_t oneReference = 2;
constexpr std::uint32_t isOnHeap = 1U << 24;
constexpr std::uint32_t hasCopyAndDispose = 1U << 25;

constexpr Address programHandle = 0x1000'0001;

std::array<std::uint8_t, 16> md5(std::span<const std::uint8_t> bytes) {
  std::array<std::uint8_t, 16> digest{};
  std::size_t size = digest.size();
  GChecksum* const computed = g_checksum_new(G_CHECKSUM_MD5);
  g_checksum_update(computed, bytes.data(), static_cast<gssize>(bytes.size()));
  g_checksum_get_digest(computed, digest.data(), &size);
  g_checksum_free(computed);
  return digest;
}

}  // namespace

void callBlock(Processor& processor, Address block, bool flag) {
  processor.call(processor.load<Address>(block + invokeOffset), {block, flag});
}

CLibrary::CLibrary(Imports& imports, ObjectiveC& objectiveC, Processor& runsOn)
    : runtime(objectiveC), processor(runsOn) {
  supplyBlocks(imports);
  supplyQueues(imports);
  supplyText(imports);
  supplySymbols(imports);
  supplyPlatform(imports);
}

Address CLibrary::copyBlock(Address block) {
  const auto flags = processor.load<std::uint32_t>(block + flagsOffset);
  if ((flags & isOnHeap) != 0) {
    processor.store(block + flagsOffset, flags + oneReference);
    return block;
  }
  const auto descriptor = processor.load<Address>(block + descriptorOffset);
  const auto size = static_cast<std::size_t>(processor.load<std::uint64_t>(descriptor + sizeOffset));
  const Address copied = processor.allocate(size);
  processor.write(copied, processor.bytes(block, size));
  processor.store(copied + flagsOffset, (flags & ~countMask) | isOnHeap | oneReference);
  if ((flags & hasCopyAndDispose) != 0)
    processor.call(processor.load<Address>(descriptor + copyOffset), {copied, block});
  return copied;
}

void CLibrary::releaseBlock(Address block) {
  const auto flags = processor.load<std::uint32_t>(block + flagsOffset);
  if ((flags & countMask) == 0) throw std::runtime_error("a block released once too often");
  processor.store(block + flagsOffset, flags - oneReference);
  if ((flags & countMask) != oneReference || (flags & hasCopyAndDispose) == 0) return;
  const auto descriptor = processor.load<Address>(block + descriptorOffset);
  processor.call(processor.load<Address>(descriptor + disposeOffset), {block});
}

void CLibrary::runMainQueue() {
  while (!mainQueue.empty()) {
    const Address block = mainQueue.front();
    mainQueue.pop_front();
    callBlock(processor, block);
    releaseBlock(block);
  }
}

void CLibrary::supplyBlocks(Imports& imports) {
  imports.addVariable("_NSConcreteStackBlock", processor.allocate(256));
  imports.add("_Block_copy", [this](HostCall& call) { call.processor.setX(0, copyBlock(call.processor.x(0))); });
  imports.add("_Block_release", [this](HostCall& call) { releaseBlock(call.processor.x(0)); });
}

void CLibrary::supplyQueues(Imports& imports) {
  const Address queue = processor.allocate(64);
  imports.addVariable("_dispatch_main_q", queue);
  imports.add("dispatch_async", [this, queue](HostCall& call) {
    if (call.processor.x(0) != queue) throw std::runtime_error("work for a queue that is not the main queue");
    mainQueue.push_back(copyBlock(call.processor.x(1)));
  });
  imports.add("dispatch_after", [this](HostCall& call) {
    const std::uint64_t when = call.processor.x(0);
    delayedWork.push_back({when, copyBlock(call.processor.x(2))});
  });
  imports.add("dispatch_sync", [this](HostCall& call) {
    synchronousQueues.push_back(call.processor.x(0));
    callBlock(processor, call.processor.x(1));
  });
  imports.add("dispatch_time",
              [](HostCall& call) { call.processor.setX(0, call.processor.x(0) + call.processor.x(1)); });
  imports.add("dispatch_retain", [](HostCall&) {});
}

void CLibrary::supplyText(Imports& imports) {
  imports.add("strlen",
              [](HostCall& call) { call.processor.setX(0, call.processor.text(call.processor.x(0)).size()); });
  imports.add("strcmp", [](HostCall& call) {
    const int order = call.processor.text(call.processor.x(0)).compare(call.processor.text(call.processor.x(1)));
    call.processor.setX(0, static_cast<std::uint64_t>(order));
  });
  imports.add("bzero", [](HostCall& call) {
    call.processor.write(call.processor.x(0), std::vector<std::uint8_t>(call.processor.x(1)));
  });
  imports.add("CC_MD5", [](HostCall& call) {
    const std::uint64_t destination = call.processor.x(2);
    const auto length = static_cast<std::uint32_t>(call.processor.x(1));
    call.processor.write(destination, md5(call.processor.bytes(call.processor.x(0), length)));
    call.processor.setX(0, destination);
  });
  imports.add("arc4random_uniform", [this](HostCall& call) {
    randomBounds.push_back(static_cast<std::uint32_t>(call.processor.x(0)));
    std::uint32_t drawn = 0;
    if (!randomNumbers.empty()) {
      drawn = randomNumbers.front();
      randomNumbers.pop_front();
    }
    call.processor.setX(0, drawn);
  });
}

void CLibrary::supplySymbols(Imports& imports) {
  imports.add("dlopen", [this](HostCall& call) {
    openings.push_back({call.processor.x(0), call.processor.x(1)});
    call.processor.setX(0, programHandle);
  });
  imports.add("dlsym", [this](HostCall& call) {
    if (call.processor.x(0) != programHandle) throw std::runtime_error("a symbol of what was never opened");
    const auto found = symbols.find(call.processor.text(call.processor.x(1)));
    call.processor.setX(0, found == symbols.end() ? 0 : found->second);
  });
  imports.add("dlclose", [](HostCall& call) {
    if (call.processor.x(0) != programHandle) throw std::runtime_error("what was never opened is closed");
    call.processor.setX(0, 0);
  });
}

void CLibrary::supplyPlatform(Imports& imports) {
  imports.add("NSLog", [](HostCall&) {});
  for (const char* name : {"AudioServicesPlaySystemSound", "AudioServicesPlayAlertSound"}) {
    imports.add(name, [this, name](HostCall& call) {
      sounds.push_back(std::string(name) + " " + std::to_string(static_cast<std::uint32_t>(call.processor.x(0))));
    });
  }
  imports.add("UIImageJPEGRepresentation", [this](HostCall& call) {
    const Address picture = call.processor.x(0);
    call.processor.setX(0, picture == 0 ? 0 : runtime.autorelease(runtime.make("NSData")));
  });
}

}  // namespace device
