#include "library/utilities/asset_bundle.hpp"

#include "objc/ownership.hpp"

// The bundle is opened once and never released. If it were released, the platform would read it from its folder again
// at the next use.
NSBundle* assetBundle() {
  static NSBundle* opened = nullptr;
  if (opened == nullptr) opened = objc::retain(NSBundle::bundleWithPath(assetBundlePath())).leak();
  return opened;
}

NSString* localizedText(NSBundle* bundle, NSString* key, NSString* fallback) {
  return bundle == nullptr ? fallback : bundle->localizedString(key, fallback);
}
