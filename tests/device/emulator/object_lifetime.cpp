// Object lifetime in the emulated runtime: retain counts, autorelease pools, associated objects, weak references, and
// the root class.
#include <stdexcept>
#include <utility>

#include "tests/device/emulator/objective_c.hpp"

namespace device {

void ObjectiveC::retain(Address address) {
  if (isObject(address)) ++object(address).retainCount;
}

void ObjectiveC::release(Address address) {
  if (!isObject(address)) return;
  if (--object(address).retainCount == 0) send(address, "dealloc");
}

Address ObjectiveC::autorelease(Address address) {
  if (!pools.empty()) pools.back().push_back(address);
  return address;
}

void ObjectiveC::drainPool() {
  if (pools.empty()) throw std::logic_error("there is no pool to drain");
  const std::vector<Address> drained = std::move(pools.back());
  pools.pop_back();
  for (const Address address : drained) release(address);
}

void ObjectiveC::destroy(Address address) {
  ObjectRecord& ended = object(address);
  ended.isDeallocated = true;
  for (auto& [location, referenced] : weakReferences) {
    if (referenced == address) {
      referenced = 0;
      processor.store(location, Address{0});
    }
  }
  for (const auto& [key, value] : ended.associations) release(value);
}

void ObjectiveC::setAssociation(Address address, Address key, Address value) {
  Address& association = object(address).associations[key];
  if (value != 0) retain(value);
  const Address previous = std::exchange(association, value);
  if (previous != 0) release(previous);
}

Address ObjectiveC::association(Address address, Address key) { return object(address).associations[key]; }

void ObjectiveC::storeWeak(Address location, Address address) {
  processor.store(location, address);
  if (address == 0) {
    weakReferences.erase(location);
  } else {
    weakReferences[location] = address;
  }
}

Address ObjectiveC::loadWeakRetained(Address location) {
  const auto found = weakReferences.find(location);
  if (found == weakReferences.end() || found->second == 0) return 0;
  retain(found->second);
  return found->second;
}

void ObjectiveC::defineRoot() {
  define("NSObject", "");
  addClassMethod("NSObject", "alloc", "@@:", [](const Message& message) {
    message.answer(message.runtime.send(message.self, "allocWithZone:", {0}));
  });
  addClassMethod("NSObject", "allocWithZone:", "@@:^v", [](const Message& message) {
    message.answer(message.runtime.allocate(message.runtime.classAt(message.self)));
  });
  addClassMethod("NSObject", "new", "@@:", [](const Message& message) {
    message.answer(message.runtime.send(message.runtime.send(message.self, "alloc"), "init"));
  });
  addMethod("NSObject", "init", "@@:", [](const Message& message) { message.answer(message.self); });
  addMethod("NSObject", "dealloc", "v@:", [this](const Message& message) { destroy(message.self); });
  addMethod("NSObject", "retain", "@@:", [](const Message& message) {
    message.runtime.retain(message.self);
    message.answer(message.self);
  });
  addMethod("NSObject", "release", "v@:", [](const Message& message) { message.runtime.release(message.self); });
  addMethod("NSObject", "autorelease",
            "@@:", [](const Message& message) { message.answer(message.runtime.autorelease(message.self)); });
  addMethod("NSObject", "copy", "@@:", [](const Message& message) {
    message.answer(message.runtime.send(message.self, "copyWithZone:", {0}));
  });
  addMethod("NSObject", "isKindOfClass:", "B@:#", [](const Message& message) {
    ClassRecord& wanted = message.runtime.classAt(message.argument(0));
    message.answer(message.runtime.classOf(message.self).isOrInherits(&wanted));
  });
  addMethod("NSObject", "respondsToSelector:", "B@::", [](const Message& message) {
    const std::string name = message.runtime.selectorName(message.argument(0));
    message.answer(message.runtime.classOf(message.self).findMethod(name) != nullptr);
  });
  define("NSAutoreleasePool");
  addMethod("NSAutoreleasePool", "init", "@@:", [](const Message& message) {
    message.runtime.openPool();
    message.answer(message.self);
  });
  addMethod("NSAutoreleasePool", "drain", "v@:", [](const Message& message) {
    message.runtime.drainPool();
    message.runtime.release(message.self);
  });
}

}  // namespace device
