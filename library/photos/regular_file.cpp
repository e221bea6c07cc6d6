#include "library/photos/regular_file.hpp"

#include "platform/ns_file_manager.hpp"

namespace {

bool isOfType(NSDictionary* attributes, NSString* type) {
  NSString* actual = attributes->fileType();
  return actual != nullptr && actual->isEqualToString(type);
}

}  // namespace

bool isRegularFile(NSString* path, NSUInteger largest) {
  if (path == nullptr) return false;
  NSFileManager* files = NSFileManager::defaultManager();
  NSDictionary* attributes = files->attributes(path);
  if (isOfType(attributes, "NSFileTypeSymbolicLink"_ns))
    attributes = files->attributes(path->stringByResolvingSymlinksInPath());
  return isOfType(attributes, "NSFileTypeRegular"_ns) && attributes->fileSize() <= largest;
}
