// The accessors that UIKit adds to NSValue.
#include "objc/class_definition.hpp"
#include "platform/ns_value.hpp"
#include "simulator/uikit/views/class_definitions.hpp"

namespace uikit {

namespace {

// Foundation's NSRect is the same struct as CGRect.
NSObject* valueWithRect(Class self, CGRect rect) { return objc::send<NSObject*, "valueWithRect:">(self, rect); }
CGRect rectValue(NSValue* self) { return objc::send<CGRect, "rectValue">(self); }

}  // namespace

void extendValues() {
  static constexpr objc::MethodEntry methods[] = {
      objc::classMethod<"valueWithCGRect:", &valueWithRect>(),
      objc::method<"CGRectValue", &rectValue>(),
  };
  objc::addCategory(NSValue::classObject(), methods);
}

}  // namespace uikit
