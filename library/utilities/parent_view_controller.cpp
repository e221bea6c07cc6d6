#include "library/utilities/parent_view_controller.hpp"

#include "objc/class_definition.hpp"

namespace {

UIResponder* nearestResponderThatIsNotAView(UIView* self) {
  UIResponder* current = self;
  while (objc::as<UIView>(current) != nullptr) current = current->nextResponder();
  return current;
}

constexpr objc::MethodEntry methods[] = {
    objc::method<"parentViewController", &nearestResponderThatIsNotAView>(),
};

}  // namespace

void registerViewUtilities() { objc::addCategory(UIView::classObject(), methods); }
