#include "simulator/uikit/text/font_class.hpp"

#include <cmath>
#include <functional>

#include "objc/class_definition.hpp"
#include "platform/ns_string.hpp"
#include "simulator/uikit/environment/environment.hpp"

struct FontState {
  drawing::Font font;
};
template <>
struct objc::StateOf<UIFont> {
  using Type = FontState;
};

namespace uikit {

drawing::Font fontOf(const UIFont* font) { return font == nullptr ? drawing::Font{} : objc::state(font).font; }

objc::Ref<UIFont> makeFont(const drawing::Font& font) {
  auto made = objc::make<UIFont>();
  objc::state(made.get()).font = font;
  return made;
}

namespace {

// The font size, in points, that replaces an invalid size. The platform uses the same value.
constexpr CGFloat fallbackFontSize = 12;

UIFont* withSize(drawing::Font font, CGFloat size) {
  font.size = std::isfinite(size) && size > 0 ? size : fallbackFontSize;
  return objc::autorelease(makeFont(font));
}

template <drawing::Weight weight>
UIFont* systemFont(Class, CGFloat size) {
  drawing::Font font;
  font.weight = weight;
  return withSize(font, size);
}

UIFont* fontWithSize(UIFont* self, CGFloat size) { return withSize(fontOf(self), size); }

CGFloat pointSize(UIFont* self) { return fontOf(self).size; }
CGFloat lineHeight(UIFont* self) { return drawing::lineHeight(fontOf(self), environment().device.scale); }
CGFloat ascender(UIFont* self) { return drawing::baselineOffset(fontOf(self), environment().device.scale); }
// The descender is negative, because it is below the baseline.
CGFloat descender(UIFont* self) { return ascender(self) - lineHeight(self); }
NSString* familyName(UIFont* self) { return NSString::stringWithUTF8String(fontOf(self).family.c_str()); }

bool isEqual(UIFont* self, NSObject* other) {
  const auto* font = objc::as<UIFont>(other);
  return font != nullptr && fontOf(font) == fontOf(self);
}
NSUInteger hash(UIFont* self) { return std::hash<double>()(fontOf(self).size); }
UIFont* copyWithZone(UIFont* self, void*) { return objc::retain(self).leak(); }

}  // namespace

void defineFont() {
  static constexpr objc::MethodEntry methods[] = {
      objc::classMethod<"systemFontOfSize:", &systemFont<drawing::Weight::Regular>>(),
      objc::classMethod<"boldSystemFontOfSize:", &systemFont<drawing::Weight::Bold>>(),
      objc::method<"fontWithSize:", &fontWithSize>(),
      objc::method<"pointSize", &pointSize>(),
      objc::method<"lineHeight", &lineHeight>(),
      objc::method<"ascender", &ascender>(),
      objc::method<"descender", &descender>(),
      objc::method<"familyName", &familyName>(),
      objc::method<"isEqual:", &isEqual>(),
      objc::method<"hash", &hash>(),
      objc::method<"copyWithZone:", &copyWithZone>(),
  };
  objc::defineClassWithState<UIFont>(methods);
}

}  // namespace uikit
