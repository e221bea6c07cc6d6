#include "tests/device/emulator/platform_classes.hpp"
#include "tests/device/emulator/recorded_methods.hpp"

namespace device {

namespace {

void definePreferences(ObjectiveC& runtime, Platform& platform) {
  runtime.define("HBPreferences");
  runtime.addMethod("HBPreferences", "initWithIdentifier:", "@@:@", [](const Message& message) {
    message.runtime.object(message.self).value = message.text(0);
    message.answer(message.self);
  });
  const auto bind = [&platform](const Message& message, const std::string& type, std::int64_t standard) {
    const std::string key = message.text(2);
    const auto stored = platform.storedSettings.find(key);
    const std::int64_t value = stored == platform.storedSettings.end() ? standard : stored->second;
    platform.registrations.push_back({textOf(message.runtime, message.self), key, type, standard, message.argument(0)});
    if (type == "bool") {
      message.processor.store(message.argument(0), static_cast<std::uint8_t>(value));
    } else {
      message.processor.store(message.argument(0), value);
    }
  };
  runtime.addMethod("HBPreferences", "registerBool:default:forKey:", "v@:^BB@", [bind](const Message& message) {
    bind(message, "bool", static_cast<std::uint8_t>(message.argument(1)));
  });
  runtime.addMethod("HBPreferences", "registerInteger:default:forKey:", "v@:^qq@", [bind](const Message& message) {
    bind(message, "integer", static_cast<std::int64_t>(message.argument(1)));
  });
}

void defineBundle(ObjectiveC& runtime) {
  runtime.define("NSBundle");
  runtime.addClassMethod("NSBundle", "bundleWithPath:", "@@:@", [](const Message& message) {
    message.answer(makeString(message.runtime, message.text(0), "NSBundle"));
  });
  // There are no localized texts, so every lookup returns the fallback.
  runtime.addMethod("NSBundle", "localizedStringForKey:value:table:", "@@:@@@",
                    [](const Message& message) { message.answer(message.argument(1)); });
  runtime.addMethod("NSBundle", "pathForResource:ofType:", "@@:@@", [](const Message& message) {
    const std::string path = textOf(message.runtime, message.self) + "/" + message.text(0) + "." + message.text(1);
    message.answer(makeString(message.runtime, path));
  });
}

void defineNotifications(ObjectiveC& runtime, Platform& platform) {
  for (const char* name : {"NSNotificationCenter", "NSDistributedNotificationCenter"}) {
    runtime.define(name);
    runtime.addClassMethod(name, "defaultCenter", "@@:", [name](const Message& message) {
      message.answer(message.runtime.autorelease(message.runtime.make(name)));
    });
    runtime.addMethod(name, "addObserver:selector:name:object:", "v@:@:@@", [&platform](const Message& message) {
      platform.observers.push_back(message.text(2) + " " + message.runtime.selectorName(message.argument(1)));
    });
  }
}

}  // namespace

void defineFoundation(ObjectiveC& runtime, Platform& platform) {
  definePreferences(runtime, platform);
  defineBundle(runtime);
  defineNotifications(runtime, platform);
  runtime.define("NSData");
  runtime.define("NSDateFormatter");
  addRecordedMethod(runtime, "NSDateFormatter", "setDateFormat:", "v@:@");
  runtime.addMethod("NSDateFormatter", "stringFromDate:", "@@:@", [](const Message& message) {
    const std::string format = textOf(message.runtime, storedValue(message.runtime, message.self, "dateFormat"));
    message.answer(makeString(message.runtime, format == "HH:mm" ? "21:41" : "9:41 PM"));
  });
  runtime.define("NSDate");
  runtime.addClassMethod("NSDate", "date", "@@:", [](const Message& message) {
    message.answer(message.runtime.autorelease(message.runtime.make("NSDate")));
  });
  runtime.define("NSProcessInfo");
  runtime.addClassMethod("NSProcessInfo", "processInfo", "@@:", [](const Message& message) {
    message.answer(message.runtime.autorelease(message.runtime.make("NSProcessInfo")));
  });
  runtime.addMethod("NSProcessInfo", "globallyUniqueString",
                    "@@:", [made = std::make_shared<int>(0)](const Message& message) {
                      message.answer(makeString(message.runtime, "unique " + std::to_string(++*made)));
                    });
}

}  // namespace device
