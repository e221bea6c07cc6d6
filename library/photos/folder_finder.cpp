#include "library/photos/folder_finder.hpp"

#include "library/utilities/file_reading.hpp"
#include "objc/autorelease_pool.hpp"
#include "objc/class_definition.hpp"
#include "platform/ns_file_manager.hpp"
#include "platform/ns_property_list_serialization.hpp"

namespace {

NSString* metadataName() { return ".com.apple.mobile_container_manager.metadata.plist"_ns; }

constexpr NSUInteger maxMetadataSize = 1 << 20;

char lowercase(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
}

bool startsWith(const char* text, NSUInteger length, const char* start) {
  NSUInteger index = 0;
  while (start[index] != 0 && index < length && lowercase(text[index]) == start[index]) ++index;
  return start[index] == 0;
}

// Returns false only if the property list certainly does not contain this string, which is lowercase and contains a
// period. This check avoids parsing, which is expensive, for most containers of other applications. A binary property
// list stores a string as ASCII, or as UTF-16, in which a period has a zero byte before it.
bool mayContain(const NSData* list, const char* string) {
  const auto* const bytes = static_cast<const char*>(list->bytes());
  const NSUInteger length = list->length();
  if (!startsWith(bytes, length, "bplist00")) return true;
  for (NSUInteger index = 0; index < length; ++index) {
    if (lowercase(bytes[index]) == string[0] && startsWith(bytes + index, length - index, string)) return true;
    if (bytes[index] == 0 && index + 1 < length && bytes[index + 1] == '.') return true;
  }
  return false;
}

bool isAsciiWithPeriod(const char* text) {
  bool hasPeriod = false;
  for (; *text != 0; ++text) {
    if ((*text & 0x80) != 0) return false;
    hasPeriod = hasPeriod || *text == '.';
  }
  return hasPeriod;
}

bool isMetadataOf(NSString* lowercaseIdentifier, NSString* file) {
  NSData* data = readRegularFile(file, maxMetadataSize);
  const char* const identifier = lowercaseIdentifier->UTF8String();
  if (data == nullptr || identifier == nullptr) return false;
  if (isAsciiWithPeriod(identifier) && !mayContain(data, identifier)) return false;
  auto* list = objc::as<NSDictionary>(NSPropertyListSerialization::propertyList(data));
  auto* stored = objc::as<NSString>(list->objectForKey("MCMMetadataIdentifier"_ns));
  return stored != nullptr && stored->lowercaseString()->isEqualToString(lowercaseIdentifier);
}

// The whole name is compared first, because this is cheaper and succeeds for almost all names.
bool isMetadataName(NSString* name) { return name->isEqualToString(metadataName()) || name->contains(metadataName()); }

bool belongsTo(NSString* lowercaseIdentifier, NSString* container) {
  NSArray* entries = NSFileManager::defaultManager()->contentsOfDirectory(container);
  for (NSUInteger index = 0; index < entries->count(); ++index) {
    auto* name = static_cast<NSString*>(entries->objectAtIndex(index));
    if (!isMetadataName(name)) continue;
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
