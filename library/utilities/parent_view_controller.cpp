#include "library/utilities/parent_view_controller.hpp"

#include "objc/class_definition.hpp"

namespace {

UIResponder* firstResponderThatIsNotAView(UIView* self) {
  UIResponder* current = self;
  while (objc::as<UIView>(current) != nullptr) current = current->nextResponder();
  return current;
}

constexpr objc::MethodEntry methods[] = {
    objc::method<"parentViewController", &firstResponderThatIsNotAView>(),
};

}  // namespace

void registerViewUtilities() { objc::addCategory(UIView::classObject(), methods); }
