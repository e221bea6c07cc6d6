#include "library/startup/private_interfaces.hpp"

#include <cstddef>

#include "platform/ui_device.hpp"

namespace {

struct Interface {
  InterfaceKind kind;
  const char* className;
  const char* name;
  const char* since;
  const char* until;
};

constexpr std::size_t countOf(Requirement requirement) {
  std::size_t count = 0;
#define BRIM_PRIVATE_INTERFACE(kind, className, name, since, until, rowRequirement, effect) \
  count += Requirement::rowRequirement == requirement ? 1 : 0;
#include "library/startup/private_interface_list.hpp"
  return count;
}

template <std::size_t size>
struct Table {
  Interface rows[size];
};

// Only the required rows, because the optional rows would make the library's file larger.
template <Requirement requirement>
constexpr auto required = [] {
  Table<countOf(requirement)> table{};
  std::size_t next = 0;
#define BRIM_PRIVATE_INTERFACE(kind, className, name, since, until, rowRequirement, effect) \
  if constexpr (Requirement::rowRequirement == requirement)                                 \
    table.rows[next++] = {InterfaceKind::kind, className, name, since, until};
#include "library/startup/private_interface_list.hpp"
  return table;
}();

NSString* text(const char* characters) { return NSString::stringWithUTF8String(characters); }

bool appliesToThisSystem(const Interface& interface) {
  return !systemVersionIsBelow(text(interface.since)) &&
         (interface.until[0] == 0 || systemVersionIsBelow(text(interface.until)));
}

bool exists(const Interface& interface) {
  Class owner = reinterpret_cast<Class>(objc_getClass(interface.className));
  switch (interface.kind) {
    case InterfaceKind::PlatformClass:
      return owner != nullptr;
    case InterfaceKind::InstanceMethod:
      return owner != nullptr && class_getInstanceMethod(owner, sel_registerName(interface.name)) != nullptr;
    // The library requires no interfaces of these kinds here.
    case InterfaceKind::ClassMethod:
    case InterfaceKind::InstanceVariable:
    case InterfaceKind::Symbol:
      return true;
  }
  return true;
}

NSString* description(const Interface& interface) {
  if (interface.kind == InterfaceKind::PlatformClass) return text(interface.className);
  return "-["_ns->stringByAppendingString(text(interface.className))
      ->stringByAppendingString(" "_ns)
      ->stringByAppendingString(text(interface.name))
      ->stringByAppendingString("]"_ns);
}

template <std::size_t size>
NSString* firstMissing(const Table<size>& table) {
  for (const Interface& interface : table.rows)
    if (appliesToThisSystem(interface) && !exists(interface)) return description(interface);
  return nullptr;
}

// Only the home screen has these classes. A home screen that lacks one of them is still recognized.
bool isHomeScreen() {
  return objc_getClass("SpringBoard") != nullptr || objc_getClass("NCNotificationShortLookViewController") != nullptr;
}

}  // namespace

NSString* missingInterface(Requirement requirement) {
  if (requirement == Requirement::Start) return firstMissing(required<Requirement::Start>);
  return isHomeScreen() ? firstMissing(required<Requirement::Banner>) : nullptr;
}
