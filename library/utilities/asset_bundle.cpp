#include "library/utilities/asset_bundle.hpp"

#include "objc/ownership.hpp"

// Opened once and never released, because the platform reads a released bundle from its folder again.
NSBundle* assetBundle() {
  static NSBundle* opened = nullptr;
  if (opened == nullptr) opened = objc::retain(NSBundle::bundleWithPath(assetBundlePath())).leak();
  return opened;
}

NSString* localizedText(NSBundle* bundle, NSString* key, NSString* fallback) {
  return bundle == nullptr ? fallback : bundle->localizedString(key, fallback);
}
