#include "simulator/foundation/property_list_parsing.hpp"

#include <algorithm>

#include "objc/hook.hpp"
#include "platform/ns_property_list_serialization.hpp"
#include "simulator/foundation/binary_property_list.hpp"
#include "simulator/foundation/hook_function.hpp"
#include "simulator/foundation/ignored_leaks.hpp"

namespace foundation {

namespace {

// The maximum number of collections in the oldest format. GNUstep parses nested collections recursively and without a
// limit.
constexpr std::ptrdiff_t maxCollections = 1000;

// The maximum first byte of GNUstep's own binary format. Data in that format is rejected, because the phone does not
// support it, and because GNUstep would allocate any amount of memory that the data specifies.
constexpr unsigned char maxFirstByteOfGNUstepFormat = 1;

bool isSafe(const NSData* data) {
  const auto* const bytes = static_cast<const unsigned char*>(data->bytes());
  if (isBinaryPropertyList({bytes, data->length()})) return isValidBinaryPropertyList({bytes, data->length()});
  if (bytes[0] <= maxFirstByteOfGNUstepFormat) return false;
  const std::string_view text(reinterpret_cast<const char*>(bytes), data->length());
  return text.starts_with("<?xml") || hasAcceptableNesting(text);
}

using Original = objc::Original<NSObject*(Class, NSData*, NSUInteger, void*, void*)>;

NSObject* propertyListWithData(Original original, Class self, NSData* data, NSUInteger options, void* format,
                               void* error) {
  if (data->length() == 0 || !isSafe(data)) return nullptr;
  // Foundation leaks the beginning of a malformed list, and the keys of a .strings file.
  const IgnoredLeaks ignored;
  try {
    return original(self, data, options, format, error);
  } catch (...) {
    return nullptr;
  }
}

}  // namespace

bool hasAcceptableNesting(std::string_view text) {
  return std::count_if(text.begin(), text.end(), [](char letter) { return letter == '(' || letter == '{'; }) <=
         maxCollections;
}

void installPropertyListParsing() {
  using Hook = objc::detail::HookOf<&propertyListWithData>;
  // Sends a message to the class first, because replacing a method before the first message would prevent the class
  // from being initialized.
  const Class self = objc::send<Class, "class">(NSPropertyListSerialization::classObject());
  const auto metaclass = reinterpret_cast<Class>(object_getClass(reinterpret_cast<id>(self)));
  MSHookMessageEx(metaclass, objc::selector<"propertyListWithData:options:format:error:">(), Hook::implementation(),
                  &Hook::replaced);
}

}  // namespace foundation
