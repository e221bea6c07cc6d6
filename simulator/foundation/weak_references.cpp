#include "simulator/foundation/weak_references.hpp"

#include <algorithm>
#include <mutex>
#include <unordered_map>
#include <vector>

#include "objc/send.hpp"
#include "simulator/foundation/deallocation.hpp"
#include "simulator/foundation/object_filter.hpp"

extern "C" unsigned long NSExtraRefCount(id object);

namespace foundation {

namespace {

using Locations = std::vector<id*>;

struct Table {
  std::mutex mutex;
  std::unordered_map<id, Locations> entries;
  ObjectFilter objects;
};

// The table is never destroyed, because objects can be deallocated while the process exits.
Table& table() {
  static Table& shared = *new Table;
  return shared;
}

// The caller of the next three functions must have locked the table.

void registerLocation(id object, id* location) {
  const auto [entry, isNew] = table().entries.try_emplace(object);
  if (isNew) table().objects.add(object);
  entry->second.push_back(location);
}

void unregisterLocation(id object, id* location) {
  const auto entry = table().entries.find(object);
  if (entry == table().entries.end()) return;
  Locations& locations = entry->second;
  const auto found = std::find(locations.rbegin(), locations.rend(), location);
  if (found == locations.rend()) return;
  *found = locations.back();
  locations.pop_back();
  if (!locations.empty()) return;
  table().entries.erase(entry);
  table().objects.remove(object);
}

void clear(id object) {
  const auto node = table().entries.extract(object);
  if (node.empty()) return;
  for (id* location : node.mapped()) *location = nullptr;
  table().objects.remove(object);
}

}  // namespace

void clearWeakReferences(id object) {
  if (!table().objects.mayContain(object)) return;
  const std::lock_guard lock(table().mutex);
  clear(object);
}

ReleaseOutcome releaseUnlessLast(id object, SEL selector, void (*release)(id, SEL)) {
  std::unique_lock<std::mutex> lock;
  // Locks the table, so a concurrent load of a weak reference waits. The load then either returns null or adds a
  // reference.
  if (table().objects.mayContain(object)) lock = std::unique_lock(table().mutex);
  if (NSExtraRefCount(object) == 0) {
    if (lock) clear(object);
    return ReleaseOutcome::LastReference;
  }
  release(object, selector);
  return ReleaseOutcome::Released;
}

}  // namespace foundation

extern "C" {

id objc_storeWeak(id* location, id object) {
  using namespace foundation;
  const id stored = object == nullptr || isDeallocating(object) ? nullptr : object;
  const std::lock_guard lock(table().mutex);
  if (*location != nullptr) unregisterLocation(*location, location);
  *location = stored;
  if (stored != nullptr) registerLocation(stored, location);
  return stored;
}

id objc_loadWeakRetained(id* location) {
  const std::lock_guard lock(foundation::table().mutex);
  return objc::send<id, "retain">(*location);
}

void objc_destroyWeak(id* location) { objc_storeWeak(location, nullptr); }

}  // extern "C"
