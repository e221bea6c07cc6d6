#include "library/photos/folder_finder.hpp"

#include "library/utilities/file_reading.hpp"
#include "objc/autorelease_pool.hpp"
#include "objc/class_definition.hpp"
#include "platform/ns_file_manager.hpp"

namespace {

NSString* metadataName() { return ".com.apple.mobile_container_manager.metadata.plist"_ns; }

bool isMetadataOf(NSString* lowercaseIdentifier, NSString* file) {
  auto* stored = objc::as<NSString>(readPropertyList(file)->objectForKey("MCMMetadataIdentifier"_ns));
  return stored != nullptr && stored->lowercaseString()->isEqualToString(lowercaseIdentifier);
}

bool belongsTo(NSString* lowercaseIdentifier, NSString* container) {
  NSArray* entries = NSFileManager::defaultManager()->contentsOfDirectory(container);
  for (NSUInteger index = 0; index < entries->count(); ++index) {
    auto* name = static_cast<NSString*>(entries->objectAtIndex(index));
    if (!name->contains(metadataName())) continue;
    if (isMetadataOf(lowercaseIdentifier, container->stringByAppendingString("/"_ns)->stringByAppendingString(name)))
      return true;
  }
  return false;
}

NSString* findFolder(Class, NSString* identifier, NSString* root) {
  if (identifier == nullptr || root == nullptr) return nullptr;
  NSString* wanted = identifier->lowercaseString();
  NSArray* names = NSFileManager::defaultManager()->contentsOfDirectory(root);
  objc::Ref<NSString> found;
  for (NSUInteger index = 0; index < names->count() && found == nullptr; ++index) {
    const objc::AutoreleasePool pool;
    NSString* container = root->stringByAppendingString(static_cast<NSString*>(names->objectAtIndex(index)));
    if (belongsTo(wanted, container)) found = objc::retain(container);
  }
  return objc::autorelease(found);
}

NSString* findSharedFolder(Class, NSString* identifier) {
  return FolderFinder::findFolder(identifier, "/var/mobile/Containers/Shared/AppGroup/"_ns);
}
NSString* findDataFolder(Class, NSString* identifier) {
  return FolderFinder::findFolder(identifier, "/var/mobile/Containers/Data/Application/"_ns);
}
NSString* findPrivateSharedFolder(Class, NSString* identifier) {
  return FolderFinder::findFolder(identifier, "/private/var/mobile/Containers/Shared/AppGroup/"_ns);
}

constexpr objc::MethodEntry methods[] = {
    objc::classMethod<"findSharedFolder:", &findSharedFolder>(),
    objc::classMethod<"findDataFolder:", &findDataFolder>(),
    objc::classMethod<"findPrivateSharedFolder:", &findPrivateSharedFolder>(),
    objc::classMethod<"findFolder:folder:", &findFolder>(),
};

}  // namespace

bool registerFolderFinder() { return objc::tryToDefineClass<FolderFinder>(methods); }
