#include "library/photos/property_list_file.hpp"

#include "library/photos/regular_file.hpp"
#include "platform/ns_property_list_serialization.hpp"

namespace {

// Those that are read hold a few kilobytes. A larger one would be held in memory whole, on the main thread.
constexpr NSUInteger largestFile = 1 << 20;

}  // namespace

NSDictionary* readPropertyList(NSString* path) {
  NSData* data = readRegularFile(path, largestFile);
  return data == nullptr ? nullptr : objc::as<NSDictionary>(NSPropertyListSerialization::propertyList(data));
}
