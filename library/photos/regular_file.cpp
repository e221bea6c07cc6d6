#include "library/photos/regular_file.hpp"

#include <fcntl.h>
#include <unistd.h>

#include "platform/ns_file_manager.hpp"

namespace {

bool isOfType(NSDictionary* attributes, NSString* type) {
  NSString* actual = attributes->fileType();
  return actual != nullptr && actual->isEqualToString(type);
}

// Pipes have no size, and folders none that can be read. Asking for the attributes instead would look the path up twice
// more, for each of thousands of files.
NSData* readAll(int file, NSUInteger largest) {
  const off_t size = lseek(file, 0, SEEK_END);
  if (size <= 0 || static_cast<NSUInteger>(size) > largest) return nullptr;
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

NSData* readRegularFile(NSString* path, NSUInteger largest) {
  if (path == nullptr) return nullptr;
  const int file = open(path->fileSystemRepresentation(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (file < 0) return nullptr;
  NSData* data = readAll(file, largest);
  close(file);
  return data;
}
