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

// The bits of an association policy. The getter of an atomic association returns a reference that remains valid when
// the association is removed.
constexpr std::uintptr_t retainsValue = 1;
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

// The table is never destroyed, because objects can be deallocated while the process exits.
Table& table() {
  static Table& shared = *new Table;
  return shared;
}

id copyOrRetain(id value, std::uintptr_t policy) {
  if ((policy & copiesValue) != 0) return objc::send<id, "copy">(value);
  if ((policy & retainsValue) != 0) return objc::send<id, "retain">(value);
  return value;
}

void release(const Association& association) {
  if ((association.policy & retainsValue) != 0) objc::send<void, "release">(association.value);
}

Associations::iterator find(Associations& associations, const void* key) {
  return std::find_if(associations.begin(), associations.end(),
                      [key](const Association& association) { return association.key == key; });
}

// Stores an association and returns the one that it replaces. Returns an empty association if it replaces none.
Association store(id object, const Association& added) {
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

void removeAssociations(id object) {
  // A loop is necessary because releasing a value can run code that adds another association to the object.
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
  // Releases the old value while the table is not locked, because deallocating the value can run any code.
  release(value == nullptr ? remove(object, key) : store(object, {key, copyOrRetain(value, policy), policy}));
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
  if (object != nullptr) foundation::removeAssociations(object);
}

}  // extern "C"
