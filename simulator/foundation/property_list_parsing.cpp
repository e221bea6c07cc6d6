#include "simulator/foundation/property_list_parsing.hpp"

#include <algorithm>

#include "objc/hook.hpp"
#include "platform/ns_property_list_serialization.hpp"
#include "simulator/foundation/binary_property_list.hpp"

namespace foundation {

namespace {

// Foundation reads nested collections of the oldest format recursively and without a limit.
constexpr std::ptrdiff_t maxCollections = 1000;

// GNUstep has a format of its own, which the phone does not know and which takes whatever memory the data asks for.
constexpr unsigned char lastSignOfGNUstepsOwn = 1;

bool isSafe(const NSData* data) {
  const auto* const bytes = static_cast<const unsigned char*>(data->bytes());
  if (isBinaryPropertyList({bytes, data->length()})) return isValidBinaryPropertyList({bytes, data->length()});
  if (bytes[0] <= lastSignOfGNUstepsOwn) return false;
  const std::string_view text(reinterpret_cast<const char*>(bytes), data->length());
  return text.starts_with("<?xml") || nestsSensibly(text);
}

using Original = objc::Original<NSObject*(Class, NSData*, NSUInteger, void*, void*)>;

NSObject* propertyListWithData(Original original, Class self, NSData* data, NSUInteger options, void* format,
                               void* error) {
  if (data->length() == 0 || !isSafe(data)) return nullptr;
  try {
    return original(self, data, options, format, error);
  } catch (...) {
    return nullptr;
  }
}

}  // namespace

bool nestsSensibly(std::string_view text) {
  return std::count_if(text.begin(), text.end(), [](char letter) { return letter == '(' || letter == '{'; }) <=
         maxCollections;
}

void installPropertyListParsing() {
  using Hook = objc::detail::HookOf<&propertyListWithData>;
  // A class that is hooked before its first message would never be initialized.
  const Class self = objc::send<Class, "class">(NSPropertyListSerialization::classObject());
  const auto metaclass = reinterpret_cast<Class>(object_getClass(reinterpret_cast<id>(self)));
  MSHookMessageEx(metaclass, objc::selector<"propertyListWithData:options:format:error:">(), Hook::implementation(),
                  &Hook::replaced);
}

}  // namespace foundation
