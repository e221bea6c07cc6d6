#include "simulator/foundation/associated_objects.hpp"

#include <algorithm>
#include <mutex>
#include <unordered_map>
#include <utility>
#include <vector>

#include "objc/send.hpp"
#include "simulator/foundation/object_filter.hpp"

namespace foundation {

namespace {

// The policy's bits: how the value is held, and whether a getter hands out a reference that outlives the association.
constexpr std::uintptr_t holdsValue = 1;
constexpr std::uintptr_t copiesValue = 2;
constexpr std::uintptr_t isAtomic = 0x300;

struct Association {
  const void* key;
  id value;
  std::uintptr_t policy;
};
using Associations = std::vector<Association>;

struct Table {
  std::mutex mutex;
  std::unordered_map<id, Associations> entries;
  ObjectFilter objects;
};

// Never destroyed: objects may go away while the process ends.
Table& table() {
  static Table& shared = *new Table;
  return shared;
}

id take(id value, std::uintptr_t policy) {
  if ((policy & copiesValue) != 0) return objc::send<id, "copy">(value);
  if ((policy & holdsValue) != 0) return objc::send<id, "retain">(value);
  return value;
}

void release(const Association& association) {
  if ((association.policy & holdsValue) != 0) objc::send<void, "release">(association.value);
}

Associations::iterator find(Associations& associations, const void* key) {
  return std::find_if(associations.begin(), associations.end(),
                      [key](const Association& association) { return association.key == key; });
}

// Stores a value and answers what was there before.
Association put(id object, const Association& added) {
  const std::lock_guard lock(table().mutex);
  const auto [entry, isNew] = table().entries.try_emplace(object);
  if (isNew) table().objects.add(object);
  const auto found = find(entry->second, added.key);
  if (found != entry->second.end()) return std::exchange(*found, added);
  entry->second.push_back(added);
  return {};
}

Association remove(id object, const void* key) {
  const std::lock_guard lock(table().mutex);
  const auto entry = table().entries.find(object);
  if (entry == table().entries.end()) return {};
  const auto found = find(entry->second, key);
  if (found == entry->second.end()) return {};
  const Association removed = *found;
  entry->second.erase(found);
  return removed;
}

Associations removeAll(id object) {
  const std::lock_guard lock(table().mutex);
  auto node = table().entries.extract(object);
  if (node.empty()) return {};
  table().objects.remove(object);
  return std::move(node.mapped());
}

}  // namespace

void forgetAssociations(id object) {
  // A value that goes away may associate anew.
  while (table().objects.mayContain(object)) {
    const Associations removed = removeAll(object);
    if (removed.empty()) return;
    for (const Association& association : removed) release(association);
  }
}

}  // namespace foundation

extern "C" {

void objc_setAssociatedObject(id object, const void* key, id value, std::uintptr_t policy) {
  using namespace foundation;
  if (object == nullptr) return;
  // The old value is let go of outside the lock: its end may run any code.
  release(value == nullptr ? remove(object, key) : put(object, {key, take(value, policy), policy}));
}

id objc_getAssociatedObject(id object, const void* key) {
  using namespace foundation;
  if (object == nullptr || !table().objects.mayContain(object)) return nullptr;
  std::unique_lock lock(table().mutex);
  const auto entry = table().entries.find(object);
  if (entry == table().entries.end()) return nullptr;
  const auto found = find(entry->second, key);
  if (found == entry->second.end()) return nullptr;
  const id value = found->value;
  if ((found->policy & isAtomic) == 0) return value;
  objc::send<id, "retain">(value);
  lock.unlock();
  return objc::send<id, "autorelease">(value);
}

void objc_removeAssociatedObjects(id object) {
  if (object != nullptr) foundation::forgetAssociations(object);
}

}  // extern "C"
