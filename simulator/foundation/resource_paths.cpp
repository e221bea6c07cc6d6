#include "simulator/foundation/resource_paths.hpp"

#include "objc/hook.hpp"
#include "platform/ns_bundle.hpp"
#include "simulator/foundation/hook_function.hpp"

namespace foundation {

namespace {

using Original = objc::Original<NSString*(NSBundle*, NSString*, NSString*)>;

NSString* pathForResource(Original original, NSBundle* self, NSString* name, NSString* type) {
  if (name == nullptr) return nullptr;
  NSString* const folder = objc::send<NSString*, "stringByDeletingLastPathComponent">(name);
  if (folder->length() == 0) return original(self, name, type);
  NSString* const file = objc::send<NSString*, "lastPathComponent">(name);
  return objc::send<NSString*, "pathForResource:ofType:inDirectory:">(self, file, type, folder);
}

}  // namespace

void installResourcePaths() {
  using Hook = objc::detail::HookOf<&pathForResource>;
  MSHookMessageEx(NSBundle::classObject(), objc::selector<"pathForResource:ofType:">(), Hook::implementation(),
                  &Hook::replaced);
}

}  // namespace foundation
