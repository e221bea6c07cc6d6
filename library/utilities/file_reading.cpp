#include "library/utilities/file_reading.hpp"

#include <fcntl.h>
#include <unistd.h>

#include "platform/ns_file_manager.hpp"
#include "platform/ns_property_list_serialization.hpp"

namespace {

// In bytes. Valid property lists have a few kilobytes. The limit bounds the time and the memory that an invalid file
// can cost on the main thread.
constexpr NSUInteger maxPropertyListSize = 1 << 20;

bool isOfType(NSDictionary* attributes, NSString* type) {
  NSString* actual = attributes->fileType();
  return actual != nullptr && actual->isEqualToString(type);
}

// Returns nil if the file is a pipe, because a pipe has no size, or a folder, because a folder cannot be read. A check
// of the file's attributes would also detect both, but it would need two more path lookups for each of thousands of
// files.
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
