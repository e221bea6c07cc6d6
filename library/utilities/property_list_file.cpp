#include "library/utilities/property_list_file.hpp"

#include "library/utilities/file_reading.hpp"
#include "platform/ns_property_list_serialization.hpp"

namespace {

// Bytes. Valid files have a few kilobytes. The limit bounds the memory and the time that a larger file costs on the
// main thread.
constexpr NSUInteger maxFileSize = 1 << 20;

}  // namespace

NSDictionary* readPropertyList(NSString* path) {
  NSData* data = readRegularFile(path, maxFileSize);
  return data == nullptr ? nullptr : objc::as<NSDictionary>(NSPropertyListSerialization::propertyList(data));
}
