#include "library/view/glyphs.hpp"

#include "library/applications/supported_applications.hpp"
#include "platform/ns_dictionary.hpp"

namespace {

// Maps a bundle identifier and a color, such as "com.apple.MobileSMS-black", to the path of the glyph in the asset
// bundle.
NSMutableDictionary* pfpBundles;

NSString* glyphKey(NSString* application, NSString* color) {
  return application->stringByAppendingString("-"_ns)->stringByAppendingString(color);
}

NSString* glyphResource(NSString* name, NSString* color) {
  return "glyphs/"_ns->stringByAppendingString(color)->stringByAppendingString("/"_ns)->stringByAppendingString(name);
}

NSString* glyphColor(NSInteger mode) { return mode == darkMode || mode == blackMode ? "white"_ns : "black"_ns; }

}  // namespace

void resetGlyphTable() {
  constexpr std::size_t colorCount = 2;
  objc::Ref<NSMutableDictionary> table =
      objc::retain(NSMutableDictionary::dictionaryWithCapacity(supportedApplications().size() * colorCount));
  for (const SupportedApplication& application : supportedApplications()) {
    NSString* identifier = NSString::stringWithUTF8String(application.bundleIdentifier);
    NSString* name = NSString::stringWithUTF8String(application.glyph);
    for (NSString* color : {"black"_ns, "white"_ns})
      table->setObject(glyphResource(name, color), glyphKey(identifier, color));
  }
  objc::releaseObject(pfpBundles);
  pfpBundles = table.leak();
}

UIImage* glyph(const BrimContainerState& state) {
  NSString* application = state.appDetailImageBundleId;
  if (application == nullptr) return nullptr;
  NSString* key = glyphKey(application, glyphColor(state.colorSet->mode()));
  auto* resource = objc::as<NSString>(pfpBundles->objectForKey(key));
  if (resource == nullptr) return nullptr;
  NSString* path = state.assets->pathForResource(resource, "png"_ns);
  return path == nullptr ? nullptr : UIImage::imageWithContentsOfFile(path);
}
