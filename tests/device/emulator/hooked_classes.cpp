#include <string_view>

#include "tests/device/emulator/platform_classes.hpp"
#include "tests/device/emulator/recorded_methods.hpp"
#include "tests/hook_rows.hpp"

namespace device {

namespace {

constexpr int recordedRegisters = 6;

// Records the call. Returns the platform's truthOfOriginals if the result is a boolean, otherwise leaves the receiver
// in x0.
void callOriginal(const Message& message, Platform& platform, const std::string& selector, char resultType) {
  OriginalCall call{selector, message.self, {}, {}};
  for (int index = 0; index < recordedRegisters; ++index) {
    call.integers.push_back(message.argument(index));
    call.numbers.push_back(message.number(index));
  }
  platform.originalCalls.push_back(call);
  if (resultType == 'B') message.answer(platform.truthOfOriginals);
}

void defineBulletins(ObjectiveC& runtime, Platform& platform) {
  runtime.define("BBBulletin");
  for (const char* name : {"title", "message", "sectionID", "bulletinID", "recordID", "publisherBulletinID", "date",
                           "defaultAction", "publicationDate", "lastInterruptDate"})
    addProperty(runtime, "BBBulletin", name, "@");
  addProperty(runtime, "BBBulletin", "clearable", "B");
  addProperty(runtime, "BBBulletin", "showsMessagePreview", "B");
  runtime.define("BBAction");
  runtime.addClassMethod("BBAction", "actionWithLaunchBundleID:callblock:", "@@:@@?", [](const Message& message) {
    message.answer(makeString(message.runtime, message.text(0), "BBAction"));
  });
  runtime.addMethod("BBServer", "publishBulletin:destinations:", "v@:@Q", [&platform](const Message& message) {
    message.runtime.retain(message.argument(0));
    platform.published.emplace_back(message.argument(0), message.argument(1));
  });
}

}  // namespace

void defineHookedClasses(ObjectiveC& runtime, Platform& platform) {
  runtime.define("NCNotificationViewController", "UIResponder");
  runtime.define("NCNotificationShortLookViewController", "NCNotificationViewController");
  // Before system version 12.0, the class of the first row has another name.
  for (const char* name : {"_NCNotificationViewControllerView", "NCNotificationViewControllerView"}) {
    runtime.define(name, "UIView");
    runtime.addMethod(name, "didMoveToSuperview", "v@:", [](const Message&) {});
  }
  for (const test::HookRow& row : test::hookRows) {
    if (runtime.find(row.className) == nullptr) runtime.define(row.className);
    if (std::string_view(row.kind) != "hook" || runtime.find(row.className)->methods.contains(row.selector)) continue;
    const std::string selector = row.selector;
    if (selector == "dealloc") continue;
    const char resultType = row.encoding[0];
    runtime.addMethod(row.className, selector, row.encoding, [&platform, selector, resultType](const Message& message) {
      callOriginal(message, platform, selector, resultType);
    });
  }
  defineBulletins(runtime, platform);
}

}  // namespace device
