// The pane's page in the Settings application. The application loads this bundle, looks up the class whose name is in
// Info.plist, and sends it messages on the main thread.
#include "objc/class_definition.hpp"
#include "platform/ns_distributed_notification_center.hpp"
#include "platform/ns_number.hpp"
#include "platform/ps_list_controller.hpp"

namespace {

class BrimListController : public objc::Interface<"BrimListController", PSListController> {};

// The distance of PSListController's variable _specifiers from the start of the object.
std::ptrdiff_t specifiersOffset;

NSArray*& storedSpecifiers(BrimListController* self) {
  return *reinterpret_cast<NSArray**>(reinterpret_cast<char*>(self) + specifiersOffset);
}

// Retains the stored specifiers, because the superclass releases them.
NSArray* specifiers(BrimListController* self) {
  NSArray*& stored = storedSpecifiers(self);
  if (stored == nullptr) stored = objc::retain(self->loadSpecifiers("Root"_ns, self)).leak();
  return stored;
}

// The superclass's method would not find a bundle, because the class is registered at run time.
NSBundle* bundle(BrimListController*) { return NSBundle::bundleWithIdentifier("com.marrowgate.brim.preferences"_ns); }

bool isFloatingPoint(const NSNumber* number) {
  const char* const type = number->objCType();
  return (type[0] == 'f' || type[0] == 'd') && type[1] == '\0';
}

// Rounds the position of a slider, which is a floating-point number, because all settings are Booleans or integers.
NSObject* withoutFraction(NSObject* value) {
  const auto* const number = objc::as<NSNumber>(value);
  if (number == nullptr || !isFloatingPoint(number)) return value;
  return NSNumber::numberWithInteger(__builtin_llround(number->doubleValue()));
}

void setPreferenceValue(BrimListController* self, NSObject* value, PSSpecifier* specifier) {
  objc::sendSuper<"BrimListController", void, "setPreferenceValue:specifier:">(self, withoutFraction(value), specifier);
}

// Brim observes this notification on the home screen.
void showTestBanner(BrimListController*) {
  NSDistributedNotificationCenter::defaultCenter()->post("com.lumetra.brim.receivedbannertest"_ns, nullptr);
}

constexpr objc::MethodEntry methods[] = {
    objc::method<"specifiers", &specifiers>(),
    objc::method<"bundle", &bundle>(),
    objc::method<"setPreferenceValue:specifier:", &setPreferenceValue>(),
    objc::method<"showTestBanner", &showTestBanner>(),
};

// Registers nothing if this process has no Settings framework, or if the framework's class lacks the variable.
[[gnu::constructor]] void registerClass() {
  const Class superclass = PSListController::classObject();
  if (superclass == nullptr || BrimListController::classObject() != nullptr) return;
  const Ivar variable = class_getInstanceVariable(superclass, "_specifiers");
  if (variable == nullptr) return;
  specifiersOffset = ivar_getOffset(variable);
  objc::defineClass<BrimListController>(methods);
}

}  // namespace
