#include "library/utilities/asset_bundle.hpp"

#include "objc/ownership.hpp"

namespace {

// Packages are installed in the root folder or, on later systems, in /var/jb.
constexpr const char* folders[] = {
    "/Library/Application Support/Brim/Assets.bundle",
    "/var/jb/Library/Application Support/Brim/Assets.bundle",
};

struct OpenedBundle {
  NSBundle* bundle = nullptr;
  const char* folder = nullptr;
};

// The bundle is opened once and never released. If it were released, the platform would read it from its folder again
// at the next use.
const OpenedBundle& openedBundle() {
  static OpenedBundle opened;
  for (const char* folder : folders) {
    if (opened.bundle != nullptr) break;
    opened = {objc::retain(NSBundle::bundleWithPath(NSString::stringWithUTF8String(folder))).leak(), folder};
  }
  return opened;
}

}  // namespace

NSBundle* assetBundle() { return openedBundle().bundle; }

NSString* assetPath(NSString* file) {
  const OpenedBundle& opened = openedBundle();
  if (opened.bundle == nullptr) return nullptr;
  return NSString::stringWithUTF8String(opened.folder)->stringByAppendingString("/"_ns)->stringByAppendingString(file);
}

NSString* localizedText(NSBundle* bundle, NSString* key, NSString* fallback) {
  return bundle == nullptr ? fallback : bundle->localizedString(key, fallback);
}
