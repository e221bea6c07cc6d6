#include "library/view/glyphs.hpp"

#include "library/view/brim_container_state.hpp"
#include "platform/ns_dictionary.hpp"

namespace {

// The edge of the texts once a badge stands beside the picture.
constexpr CGFloat leadingBesideBadge = 24;

// Bundle identifier and colour word to the glyph's resource.
struct Glyph {
  const char* key;
  const char* resource;
};

constexpr Glyph literalTable[] = {
    {"net.whatsapp.WhatsApp-black", "glyphs/black/whatsapp"},
    {"net.whatsapp.WhatsApp-white", "glyphs/white/whatsapp"},
    {"net.whatsapp.WhatsAppSMB-black", "glyphs/black/whatsapp"},
    {"net.whatsapp.WhatsAppSMB-white", "glyphs/white/whatsapp"},
    {"com.apple.MobileSMS-black", "glyphs/black/imessages"},
    {"com.apple.MobileSMS-white", "glyphs/white/imessages"},
    {"com.atebits.Tweetie2-black", "glyphs/black/twitter"},
    {"com.atebits.Tweetie2-white", "glyphs/white/twitter"},
    {"com.tinyspeck.chatlyio-black", "glyphs/black/slack"},
    {"com.tinyspeck.chatlyio-white", "glyphs/white/slack"},
    {"com.hammerandchisel.discord-black", "glyphs/black/discord"},
    {"com.hammerandchisel.discord-white", "glyphs/white/discord"},
    {"com.burbn.instagram-black", "glyphs/black/instagram"},
    {"com.burbn.instagram-white", "glyphs/white/instagram"},
    {"com.facebook.Messenger-black", "glyphs/black/facebook_messenger"},
    {"com.facebook.Messenger-white", "glyphs/white/facebook_messenger"},
    {"ph.telegra.Telegraph-black", "glyphs/black/telegram"},
    {"ph.telegra.Telegraph-white", "glyphs/white/telegram"},
};

NSMutableDictionary* pfpBundles;

NSString* glyphColour(NSInteger mode) { return mode == darkMode || mode == blackMode ? "white"_ns : "black"_ns; }

UIImage* glyph(const BrimContainerState& state) {
  NSString* application = state.appDetailImageBundleId;
  if (application == nullptr) return nullptr;
  NSString* key =
      application->stringByAppendingString("-"_ns)->stringByAppendingString(glyphColour(state.colorSet->mode()));
  auto* resource = objc::as<NSString>(pfpBundles->objectForKey(key));
  if (resource == nullptr) return nullptr;
  NSString* path = state.assets->pathForResource(resource, "png"_ns);
  return path == nullptr ? nullptr : UIImage::imageWithContentsOfFile(path);
}

void makeRoomForBadge(const BrimContainerState& state) {
  state.headerLeading->setConstant(leadingBesideBadge);
  state.subHeaderLeading->setConstant(leadingBesideBadge);
  state.bodyLeading->setConstant(leadingBesideBadge);
}

}  // namespace

void resetGlyphTable() {
  constexpr NSUInteger count = sizeof literalTable / sizeof *literalTable;
  objc::Ref<NSMutableDictionary> fresh = objc::retain(NSMutableDictionary::dictionaryWithCapacity(count));
  for (const Glyph& entry : literalTable)
    fresh->setObject(NSString::stringWithUTF8String(entry.resource), NSString::stringWithUTF8String(entry.key));
  objc::releaseObject(pfpBundles);
  pfpBundles = fresh.leak();
}

void updateImage(BrimContainer* self, UIImage* picture) {
  const BrimContainerState& state = objc::state(self);
  state.iconView->setImage(picture);
  state.badge->setImage(state.useIconsInsteadOfGlyphs ? state.image.get() : glyph(state));
  makeRoomForBadge(state);
}

void recolourGlyph(BrimContainer* self) {
  const BrimContainerState& state = objc::state(self);
  if (state.badge->image() == nullptr || state.useIconsInsteadOfGlyphs) return;
  state.badge->setImage(glyph(state));
  makeRoomForBadge(state);
}
