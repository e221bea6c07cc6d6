// UIDevice and UIScreen, which return the values of the environment.
#include "platform/ui_device.hpp"

#include "objc/class_definition.hpp"
#include "simulator/uikit/environment/environment.hpp"
#include "simulator/uikit/environment/screen.hpp"
#include "simulator/uikit/environment/trait_collection.hpp"
#include "simulator/uikit/views/class_definitions.hpp"

namespace uikit {

namespace {

template <class Type>
Type* shared(Class) {
  static const objc::Ref<Type> only = objc::make<Type>();
  return only;
}

NSString* string(const std::string& text) { return NSString::stringWithUTF8String(text.c_str()); }

NSString* systemVersion(UIDevice*) { return string(environment().systemVersion); }
NSString* name(UIDevice*) { return string(std::string(environment().device.name)); }
NSInteger feedbackSupportLevel(UIDevice*) { return environment().device.feedbackSupportLevel; }

CGRect bounds(UIScreen*) { return {{}, mainScreen().size}; }
CGFloat scale(UIScreen*) { return mainScreen().scale; }
UITraitCollection* traits(UIScreen*) { return traitCollection(environment().style); }

}  // namespace

void defineDevice() {
  static constexpr objc::MethodEntry methods[] = {
      objc::classMethod<"currentDevice", &shared<UIDevice>>(),
      objc::method<"systemVersion", &systemVersion>(),
      objc::method<"name", &name>(),
      objc::method<"_feedbackSupportLevel", &feedbackSupportLevel>(),
  };
  objc::defineClass<UIDevice>(methods);
}

void defineScreen() {
  static constexpr objc::MethodEntry methods[] = {
      objc::classMethod<"mainScreen", &shared<UIScreen>>(),
      objc::method<"bounds", &bounds>(),
      objc::method<"scale", &scale>(),
      objc::method<"traitCollection", &traits>(),
  };
  objc::defineClass<UIScreen>(methods);
}

}  // namespace uikit
