#include "simulator/springboard/services/notification_recorder.hpp"

#include <nlohmann/json.hpp>
#include <string>

#include "objc/class_definition.hpp"
#include "platform/ns_distributed_notification_center.hpp"
#include "simulator/base/event_log.hpp"
#include "simulator/base/foundation_json.hpp"
#include "simulator/foundation/hook_function.hpp"

namespace springboard {

namespace {

bool isPlatformName(const std::string& name) {
  constexpr const char* prefixes[] = {"NS", "GS", "GD", "UI", "_"};
  for (const char* prefix : prefixes)
    if (name.starts_with(prefix)) return true;
  return false;
}

void record(const char* event, NSString* name, NSDictionary* userInfo) {
  const std::string text = base::textOf(name);
  if (!isPlatformName(text)) base::recordEvent(event, {{"name", text}, {"userInfo", base::jsonOf(userInfo)}});
}

template <auto function, objc::FixedString selector>
void hook(Class target) {
  using Hook = objc::detail::HookOf<function>;
  MSHookMessageEx(target, objc::selector<selector>(), Hook::implementation(), &Hook::replaced);
}

using Post = objc::Original<void(NSNotificationCenter*, NSString*, NSObject*, NSDictionary*)>;
using PostDistributed =
    objc::Original<void(NSDistributedNotificationCenter*, NSString*, NSObject*, NSDictionary*, bool)>;

void post(Post original, NSNotificationCenter* self, NSString* name, NSObject* object, NSDictionary* userInfo) {
  // The distributed center inherits this method and forwards the call to its own method, which records the
  // notification.
  if (objc::as<NSDistributedNotificationCenter>(self) == nullptr) record("post", name, userInfo);
  original(self, name, object, userInfo);
}

void postDistributed(PostDistributed original, NSDistributedNotificationCenter* self, NSString* name, NSObject* object,
                     NSDictionary* userInfo, bool immediately) {
  record("distributed", name, userInfo);
  original(self, name, object, userInfo, immediately);
}

}  // namespace

void recordPostedNotifications() {
  hook<&post, "postNotificationName:object:userInfo:">(NSNotificationCenter::classObject());
  hook<&postDistributed, "postNotificationName:object:userInfo:deliverImmediately:">(
      NSDistributedNotificationCenter::classObject());
}

void postUnrecorded(NSString* name) {
  using Hook = objc::detail::HookOf<&postDistributed>;
  const PostDistributed original(Hook::replaced,
                                 objc::selector<"postNotificationName:object:userInfo:deliverImmediately:">());
  original(NSDistributedNotificationCenter::defaultCenter(), name, nullptr, nullptr, true);
}

}  // namespace springboard
