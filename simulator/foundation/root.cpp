#include "simulator/foundation/root.hpp"

#include "platform/ns_data.hpp"
#include "platform/ns_file_manager.hpp"
#include "simulator/foundation/defaults_isolation.hpp"
#include "simulator/foundation/hook_function.hpp"

extern "C" const char* GSPathHandling(const char* mode);

namespace foundation {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view mappedFolders[] = {"/Library/Application Support/Brim", "/var/mobile",
                                              "/private/var/mobile"};

fs::path& chosenRoot() {
  static fs::path& chosen = *new fs::path;
  return chosen;
}

DefaultsDatabase chosenDatabase = DefaultsDatabase::OfUser;

bool isInFolder(std::string_view path, std::string_view folder) {
  return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

bool isMapped(std::string_view path) {
  for (const std::string_view folder : mappedFolders)
    if (isInFolder(path, folder)) return true;
  return false;
}

const char* fileSystemRepresentation(NSFileManager*, SEL, NSString* path) {
  const char* const text = path->UTF8String();
  if (text == nullptr || !isMapped(text)) return text;
  const std::string mapped = pathUnderRoot(text);
  return static_cast<const char*>(NSData::dataWithBytes(mapped.c_str(), mapped.size() + 1)->bytes());
}

// Makes "/private/var" and "/var" the same folder, as on the phone. The phone has a link from "var" to "private/var";
// the root has a link in the other direction. An existing folder "private/var" is not replaced.
void linkPrivateFolder(const fs::path& root) {
  const fs::path link = root / "private/var";
  std::error_code ignored;
  fs::create_directories(link.parent_path(), ignored);
  fs::create_directory_symlink("../var", link, ignored);
}

// Decodes a file name as UTF-8, or as Latin-1 if it is not valid UTF-8. The phone's file system contains only UTF-8
// names, but this machine's can contain others.
NSString* stringWithRepresentation(NSFileManager*, SEL, const char* name, NSUInteger length) {
  NSData* const bytes = NSData::dataWithBytes(name, length);
  const objc::Ref<NSString> decoded = NSString::decoded(bytes, NSStringEncoding::UTF8);
  return objc::autorelease(decoded != nullptr ? decoded : NSString::decoded(bytes, NSStringEncoding::Latin1));
}

}  // namespace

std::optional<std::string> useRoot(const fs::path& root, DefaultsDatabase database) {
  std::error_code error;
  fs::create_directories(root, error);
  if (error) return root.string() + ": " + error.message();
  chosenRoot() = fs::canonical(root, error);
  if (error) return root.string() + ": " + error.message();
  chosenDatabase = database;
  linkPrivateFolder(chosenRoot());
  return database == DefaultsDatabase::OfRoot ? isolateDefaults(chosenRoot()) : std::nullopt;
}

DefaultsDatabase defaultsDatabase() { return chosenDatabase; }

const fs::path& root() { return chosenRoot(); }

std::string pathUnderRoot(std::string_view platformPath) {
  const std::string& folder = root().native();
  if (folder.empty() || !platformPath.starts_with('/') || isInFolder(platformPath, folder))
    return std::string(platformPath);
  return folder + std::string(platformPath);
}

void installPlatformPaths() {
  // Makes Foundation treat a backslash as part of a file name. By default, Foundation treats it as a separator.
  GSPathHandling("unix");
  MSHookMessageEx(NSFileManager::classObject(), objc::selector<"fileSystemRepresentationWithPath:">(),
                  objc::toImplementation(&fileSystemRepresentation), nullptr);
  MSHookMessageEx(NSFileManager::classObject(), objc::selector<"stringWithFileSystemRepresentation:length:">(),
                  objc::toImplementation(&stringWithRepresentation), nullptr);
}

}  // namespace foundation
