#include "tests/device/emulator/platform_classes.hpp"

namespace device {

namespace {

std::string setterOf(const std::string& name) {
  return "set" + std::string(1, static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])))) + name.substr(1) +
         ":";
}

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

void addProperty(ObjectiveC& runtime, const std::string& className, const std::string& name, PropertyKind kind) {
  runtime.addMethod(className, name, kind == PropertyKind::Object ? "@@:" : "q@:", [name](const Message& message) {
    message.answer(message.runtime.object(message.self).properties[name]);
  });
  runtime.addMethod(className, setterOf(name), kind == PropertyKind::Object ? "v@:@" : "v@:q",
                    [name, kind](const Message& message) {
                      std::uint64_t& held = message.runtime.object(message.self).properties[name];
                      if (kind == PropertyKind::Object) message.runtime.retain(message.argument(0));
                      held = message.argument(0);
                    });
}

void defineFoundation(ObjectiveC& runtime, Platform& platform) {
  definePreferences(runtime, platform);
  defineBundle(runtime);
  defineNotifications(runtime, platform);
  runtime.define("NSData");
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
