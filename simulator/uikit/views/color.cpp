#include "simulator/uikit/views/color.hpp"

#include <cmath>
#include <functional>

#include "objc/class_definition.hpp"
#include "simulator/uikit/views/class_definitions.hpp"

template <>
struct objc::StateOf<UIColor> {
  using Type = struct CGColor;
};

namespace uikit {

drawing::Color colorOf(const UIColor* color) {
  return color == nullptr ? drawing::Color{0, 0, 0, 0} : objc::state(color).color;
}

objc::Ref<UIColor> makeColor(const drawing::Color& color) {
  auto made = objc::make<UIColor>();
  objc::state(made.get()).color = color;
  return made;
}

namespace {

// Returns a valid color component. Values outside the range from 0 to 1 are valid, because wide-gamut colors use them.
// NaN and infinity become 0.
double component(double value) { return std::isfinite(value) ? value : 0; }
double alphaComponent(double value) { return value >= 0 ? std::min(value, 1.0) : 0; }

UIColor* withRed(Class, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  return objc::autorelease(makeColor({component(red), component(green), component(blue), alphaComponent(alpha)}));
}

UIColor* withWhite(Class, CGFloat white, CGFloat alpha) { return withRed(nullptr, white, white, white, alpha); }

UIColor* withAlphaComponent(UIColor* self, CGFloat alpha) {
  drawing::Color color = colorOf(self);
  color.alpha = alphaComponent(alpha);
  return objc::autorelease(makeColor(color));
}

// Creates a constant color. Components are in thousandths and alpha is in percent, because not every compiler accepts
// floating-point template arguments.
template <int red, int green, int blue, int alphaPercent = 100>
UIColor* fixedColor() {
  static UIColor* const made = makeColor({red / 1000.0, green / 1000.0, blue / 1000.0, alphaPercent / 100.0}).leak();
  return made;
}

template <int red, int green, int blue, int alphaPercent = 100>
UIColor* namedColor(Class) {
  return fixedColor<red, green, blue, alphaPercent>();
}

CGColorRef cgColor(UIColor* self) { return &objc::state(self); }

bool getComponents(UIColor* self, CGFloat* red, CGFloat* green, CGFloat* blue, CGFloat* alpha) {
  const drawing::Color color = colorOf(self);
  const auto store = [](CGFloat* destination, double value) {
    if (destination != nullptr) *destination = value;
  };
  store(red, color.red);
  store(green, color.green);
  store(blue, color.blue);
  store(alpha, color.alpha);
  return true;
}

bool isEqual(UIColor* self, NSObject* other) {
  const auto* color = objc::as<UIColor>(other);
  return color != nullptr && colorOf(color) == colorOf(self);
}

NSUInteger hash(UIColor* self) {
  const drawing::Color color = colorOf(self);
  NSUInteger mixed = 0;
  for (const double value : {color.red, color.green, color.blue, color.alpha})
    mixed = mixed * 31 + std::hash<double>()(value);
  return mixed;
}

UIColor* copyWithZone(UIColor* self, void*) { return objc::retain(self).leak(); }

bool isDark(UIUserInterfaceStyle style) { return style == UIUserInterfaceStyle::Dark; }

}  // namespace

UIColor* labelColor(UIUserInterfaceStyle style) {
  return isDark(style) ? fixedColor<1000, 1000, 1000>() : fixedColor<0, 0, 0>();
}

UIColor* placeholderTextColor(UIUserInterfaceStyle style) {
  return isDark(style) ? fixedColor<922, 922, 961, 30>() : fixedColor<235, 235, 263, 30>();
}

UIColor* tintColor(UIUserInterfaceStyle style) {
  return isDark(style) ? fixedColor<39, 518, 1000>() : fixedColor<0, 478, 1000>();
}

void defineColor() {
  static constexpr objc::MethodEntry methods[] = {
      objc::classMethod<"colorWithRed:green:blue:alpha:", &withRed>(),
      objc::classMethod<"colorWithWhite:alpha:", &withWhite>(),
      objc::classMethod<"blackColor", &namedColor<0, 0, 0>>(),
      objc::classMethod<"darkGrayColor", &namedColor<333, 333, 333>>(),
      objc::classMethod<"grayColor", &namedColor<500, 500, 500>>(),
      objc::classMethod<"lightGrayColor", &namedColor<667, 667, 667>>(),
      objc::classMethod<"whiteColor", &namedColor<1000, 1000, 1000>>(),
      objc::classMethod<"redColor", &namedColor<1000, 0, 0>>(),
      objc::classMethod<"greenColor", &namedColor<0, 1000, 0>>(),
      objc::classMethod<"blueColor", &namedColor<0, 0, 1000>>(),
      objc::classMethod<"clearColor", &namedColor<0, 0, 0, 0>>(),
      objc::method<"colorWithAlphaComponent:", &withAlphaComponent>(),
      objc::method<"CGColor", &cgColor>(),
      objc::method<"getRed:green:blue:alpha:", &getComponents>(),
      objc::method<"isEqual:", &isEqual>(),
      objc::method<"hash", &hash>(),
      objc::method<"copyWithZone:", &copyWithZone>(),
  };
  objc::defineClassWithState<UIColor>(methods);
}

}  // namespace uikit
