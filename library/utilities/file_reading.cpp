#include "library/utilities/file_reading.hpp"

#include <fcntl.h>
#include <unistd.h>

#include "platform/ns_file_manager.hpp"
#include "platform/ns_property_list_serialization.hpp"

namespace {

// In bytes. Valid property lists have a few kilobytes. The limit bounds the memory and the main-thread time that a
// malicious file can cost.
constexpr NSUInteger maxPropertyListSize = 1 << 20;

bool isOfType(NSDictionary* attributes, NSString* type) {
  NSString* actual = attributes->fileType();
  return actual != nullptr && actual->isEqualToString(type);
}

// Returns nil for a pipe, because a pipe has no size, and for a folder, because a folder cannot be read. To detect both
// by the file's attributes would require two more path lookups for each of thousands of files.
NSData* readAll(int file, NSUInteger maxSize) {
  const off_t size = lseek(file, 0, SEEK_END);
  if (size <= 0 || static_cast<NSUInteger>(size) > maxSize) return nullptr;
  const auto length = static_cast<NSUInteger>(size);
  NSMutableData* data = NSMutableData::dataWithLength(length);
  return pread(file, data->mutableBytes(), length, 0) == size ? data : nullptr;
}

}  // namespace

bool isRegularFile(NSString* path) {
  if (path == nullptr) return false;
  NSFileManager* files = NSFileManager::defaultManager();
  NSDictionary* attributes = files->attributes(path);
  if (isOfType(attributes, "NSFileTypeSymbolicLink"_ns))
    attributes = files->attributes(path->stringByResolvingSymlinksInPath());
  return isOfType(attributes, "NSFileTypeRegular"_ns);
}

NSData* readRegularFile(NSString* path, NSUInteger maxSize) {
  if (path == nullptr) return nullptr;
  const int file = open(path->fileSystemRepresentation(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (file < 0) return nullptr;
  NSData* data = readAll(file, maxSize);
  close(file);
  return data;
}

NSDictionary* readPropertyList(NSString* path) {
  NSData* data = readRegularFile(path, maxPropertyListSize);
  return data == nullptr ? nullptr : objc::as<NSDictionary>(NSPropertyListSerialization::propertyList(data));
}
