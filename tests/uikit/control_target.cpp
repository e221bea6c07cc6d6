#include "tests/uikit/control_target.hpp"

#include "objc/class_definition.hpp"
#include "simulator/uikit/controls/control.hpp"

namespace test {

namespace {

void plain(ControlTarget*) { UIKitTest::log("plain"); }
void withSender(ControlTarget*, UIControl* sender) {
  UIKitTest::log(std::string("sender ") + class_getName(object_getClass(objc::detail::toId(sender))));
}
void withSenderAndEvent(ControlTarget*, UIControl*, NSObject*) { UIKitTest::log("sender and event"); }
void began(ControlTarget*) { UIKitTest::log("began"); }
void changed(ControlTarget*) { UIKitTest::log("changed"); }
void ended(ControlTarget*) { UIKitTest::log("ended"); }
void endedOnExit(ControlTarget*) { UIKitTest::log("ended on exit"); }

}  // namespace

objc::Ref<ControlTarget> ControlTarget::make() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"plain", &plain>(),
      objc::method<"withSender:", &withSender>(),
      objc::method<"withSender:event:", &withSenderAndEvent>(),
      objc::method<"began", &began>(),
      objc::method<"changed", &changed>(),
      objc::method<"ended", &ended>(),
      objc::method<"endedOnExit", &endedOnExit>(),
  };
  if (classObject() == nullptr) objc::defineClass<ControlTarget>(methods);
  return objc::make<ControlTarget>();
}

void logEditingEvents(ControlTarget* target, UIControl* field) {
  field->addTarget(target, objc::selector<"began">(), UIControlEvents::EditingDidBegin);
  field->addTarget(target, objc::selector<"changed">(), uikit::editingChanged);
  field->addTarget(target, objc::selector<"ended">(), UIControlEvents::EditingDidEnd);
  field->addTarget(target, objc::selector<"endedOnExit">(), UIControlEvents::EditingDidEndOnExit);
}

}  // namespace test
