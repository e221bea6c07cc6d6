#include "tests/uikit/listener.hpp"

#include "objc/class_definition.hpp"
#include "simulator/uikit/controls/control.hpp"

namespace test {

namespace {

void plain(Listener*) { Stage::write("plain"); }
void withSender(Listener*, UIControl* sender) {
  Stage::write(std::string("sender ") + class_getName(object_getClass(objc::detail::identifier(sender))));
}
void withSenderAndEvent(Listener*, UIControl*, NSObject*) { Stage::write("sender and event"); }
void began(Listener*) { Stage::write("began"); }
void changed(Listener*) { Stage::write("changed"); }
void ended(Listener*) { Stage::write("ended"); }
void endedOnExit(Listener*) { Stage::write("ended on exit"); }

}  // namespace

objc::Ref<Listener> Listener::make() {
  static constexpr objc::MethodEntry methods[] = {
      objc::method<"plain", &plain>(),
      objc::method<"withSender:", &withSender>(),
      objc::method<"withSender:event:", &withSenderAndEvent>(),
      objc::method<"began", &began>(),
      objc::method<"changed", &changed>(),
      objc::method<"ended", &ended>(),
      objc::method<"endedOnExit", &endedOnExit>(),
  };
  if (classObject() == nullptr) objc::defineClass<Listener>(methods);
  return objc::make<Listener>();
}

void listenToEditing(Listener* listener, UIControl* field) {
  field->addTarget(listener, objc::selector<"began">(), UIControlEvents::EditingDidBegin);
  field->addTarget(listener, objc::selector<"changed">(), uikit::editingChanged);
  field->addTarget(listener, objc::selector<"ended">(), UIControlEvents::EditingDidEnd);
  field->addTarget(listener, objc::selector<"endedOnExit">(), UIControlEvents::EditingDidEndOnExit);
}

}  // namespace test
