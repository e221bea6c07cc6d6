#include "simulator/foundation/root.hpp"

#include "platform/ns_object.hpp"
#include "simulator/foundation/defaults_isolation.hpp"

namespace foundation {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view mappedFolders[] = {"/Library/Application Support/Brim", "/var/mobile",
                                              "/private/var/mobile"};
// On the phone, /var is a link into it.
constexpr std::string_view privateFolder = "/private";

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

IMP originalRepresentation = nullptr;

const char* fileSystemRepresentation(NSObject* self, SEL selector, NSString* path) {
  const char* const text = path->UTF8String();
  NSString* mapped = path;
  if (text != nullptr && isMapped(text)) mapped = NSString::stringWithUTF8String(pathUnderRoot(text).c_str());
  return objc::detail::call<const char*>(originalRepresentation, objc::detail::identifier(self), selector, mapped);
}

}  // namespace

std::optional<std::string> useRoot(const fs::path& root, DefaultsDatabase database) {
  std::error_code error;
  fs::create_directories(root, error);
  if (error) return root.string() + ": " + error.message();
  chosenRoot() = fs::canonical(root, error);
  if (error) return root.string() + ": " + error.message();
  chosenDatabase = database;
  return database == DefaultsDatabase::OfRoot ? isolateDefaults(chosenRoot()) : std::nullopt;
}

DefaultsDatabase defaultsDatabase() { return chosenDatabase; }

const fs::path& root() { return chosenRoot(); }

std::string pathUnderRoot(std::string_view platformPath) {
  const std::string& folder = root().native();
  if (folder.empty() || !platformPath.starts_with('/') || isInFolder(platformPath, folder))
    return std::string(platformPath);
  if (isInFolder(platformPath, privateFolder)) platformPath.remove_prefix(privateFolder.size());
  return folder + std::string(platformPath);
}

void installPlatformPaths() {
  MSHookMessageEx(objc::lookUpClass<"NSFileManager">(), objc::selector<"fileSystemRepresentationWithPath:">(),
                  objc::toImplementation(&fileSystemRepresentation), &originalRepresentation);
}

}  // namespace foundation
