#include "library/startup/utilities/ui_view_plon.hpp"

#include "objc/class_definition.hpp"

namespace {

// Not checked to be a view controller: a view without one ends at whatever responder follows.
UIResponder* firstResponderThatIsNoView(UIView* self) {
  UIResponder* current = self;
  while (objc::as<UIView>(current) != nullptr) current = current->nextResponder();
  return current;
}

constexpr objc::MethodEntry methods[] = {
    objc::method<"parentViewController", &firstResponderThatIsNoView>(),
};

}  // namespace

void registerViewUtilities() { objc::addCategory(UIView::classObject(), methods); }
