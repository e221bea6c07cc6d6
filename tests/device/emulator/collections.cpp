#include <stdexcept>

#include "tests/device/emulator/platform_classes.hpp"

namespace device {

namespace {

// Dictionaries are maps by the key's text, because every key that the library uses is a string.
using Entries = std::map<std::string, Address>;

Entries& entriesOf(const Message& message) {
  return std::any_cast<Entries&>(message.runtime.object(message.self).value);
}

Address makeObject(ObjectiveC& runtime, const std::string& className, std::any value) {
  const Address made = runtime.allocate(*runtime.find(className));
  runtime.object(made).value = std::move(value);
  return runtime.autorelease(made);
}

void setObject(const Message& message) {
  Address& entry = entriesOf(message)[message.text(1)];
  const Address previous = entry;
  entry = message.argument(0);
  message.runtime.retain(entry);
  if (previous != 0) message.runtime.release(previous);
}

void objectForKey(const Message& message) {
  const Entries& entries = entriesOf(message);
  const auto found = entries.find(message.text(0));
  message.answer(found == entries.end() ? 0 : found->second);
}

void deallocateEntries(const Message& message) {
  const Entries entries = entriesOf(message);
  for (const auto& [key, value] : entries) message.runtime.release(value);
  message.processor.call(
      message.runtime.implementation(*message.runtime.find("NSObject"), message.runtime.selector("dealloc")),
      {message.self, message.selector});
}

// Creates values from one byte only, because the library boxes only booleans.
void valueWithBytes(const Message& message) {
  const auto byte = message.processor.load<std::uint8_t>(message.argument(0));
  if (message.processor.text(message.argument(1)) != "B") throw std::runtime_error("a value that is no flag");
  message.answer(makeObject(message.runtime, "NSValue", byte));
}

void getValue(const Message& message) {
  message.processor.store(message.argument(0), std::any_cast<std::uint8_t>(message.runtime.object(message.self).value));
}

}  // namespace

void defineCollections(ObjectiveC& runtime, Platform& platform) {
  runtime.define("NSArray");
  runtime.define("NSMutableArray", "NSArray");
  runtime.define("NSDictionary");
  runtime.define("NSMutableDictionary", "NSDictionary");
  runtime.addClassMethod("NSMutableDictionary", "dictionaryWithCapacity:", "@@:Q", [&platform](const Message& message) {
    platform.dictionaries.push_back(makeObject(message.runtime, "NSMutableDictionary", Entries()));
    message.answer(platform.dictionaries.back());
  });
  runtime.addMethod("NSMutableDictionary", "setObject:forKey:", "v@:@@", setObject);
  runtime.addMethod("NSDictionary", "objectForKey:", "@@:@", objectForKey);
  runtime.addMethod("NSDictionary", "count",
                    "Q@:", [](const Message& message) { message.answer(entriesOf(message).size()); });
  runtime.addMethod("NSDictionary", "dealloc", "v@:", deallocateEntries);

  runtime.define("NSValue");
  runtime.addClassMethod("NSValue", "valueWithBytes:objCType:", "@@:^v*", valueWithBytes);
  runtime.addMethod("NSValue", "getValue:", "v@:^v", getValue);
  runtime.define("NSNumber", "NSValue");
  runtime.addMethod("NSNumber", "integerValue", "q@:", [](const Message& message) {
    message.answer(static_cast<std::uint64_t>(std::any_cast<std::int64_t>(message.runtime.object(message.self).value)));
  });
}

}  // namespace device
